// Measures the class tables: building all records, finding a record, calling a method by
// reflection, decoding the form. Exits with 1 if a limit is exceeded.

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <string_view>
#include <vector>

#include "bench/HeldBenchmarks.h"
#include "daystatus/Veldrin.h"
#include "reflection/ClassInfo.h"
#include "reflection/MethodInfo.h"
#include "shell/objects/NewArray.h"
#include "ui/FormStreams.h"
#include "ui/PropertyStream.h"

namespace veldrin {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double LargestBuildTime = 1000.0;    // microseconds
constexpr double LargestBuildMemory = 512.0;   // KiB
constexpr double LargestInvokeRatio = 20.0;    // time of a call by reflection / direct call
constexpr double LargestDecodingTime = 200.0;  // microseconds

/// Measures the building of all classes. It happens once per process, so call this first.
void reportBuilding() {
  const std::size_t before = mallinfo2().uordblks;
  const auto start = Clock::now();
  initializeClasses();
  const std::chrono::duration<double, std::micro> time = Clock::now() - start;
  const double memory = static_cast<double>(mallinfo2().uordblks - before) / 1024.0;
  isLimitBroken |= time.count() > LargestBuildTime || memory > LargestBuildMemory;
  std::printf("Classes/build: %.0f us (limit %.0f), %.0f KiB (limit %.0f)\n", time.count(),
              LargestBuildTime, memory, LargestBuildMemory);
}

void lookup(benchmark::State& state) {
  while (state.KeepRunning()) benchmark::DoNotOptimize(TextField::__Lookup());
}

Ref<Introspection::MethodInfo> methodNamed(std::string_view name) {
  const auto methods = Introspection::ClassInfo::Lookup(Veldrin::__Lookup())->GetMethods();
  for (const auto& method : methods->elements) {
    if (method->Name() == name) return method;
  }
  return nullptr;
}

/// Calls `iPart` directly and by reflection, in alternating blocks.
void invoke(benchmark::State& state) {
  const Ref<Veldrin> window = implicit::Veldrin();
  const auto method = methodNamed("iPart");
  const auto arguments = newArray(std::vector{Variant(2.9)});
  constexpr int Calls = 1000;
  std::chrono::duration<double> direct{};
  std::chrono::duration<double> invoked{};
  while (state.KeepRunning()) {
    const auto start = Clock::now();
    for (int call = 0; call < Calls; ++call) {
      double value = 2.9;
      benchmark::DoNotOptimize(value);
      benchmark::DoNotOptimize(window->iPart(value));
    }
    const auto middle = Clock::now();
    for (int call = 0; call < Calls; ++call) {
      benchmark::DoNotOptimize(method->InvokeForResult(window, arguments));
    }
    direct += middle - start;
    invoked += Clock::now() - middle;
  }
  const double ratio = invoked / direct;
  state.counters["ratio"] = ratio;
  state.counters["limit"] = LargestInvokeRatio;
  checkLimit(state, ratio, LargestInvokeRatio);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): false positive: Ref releases it.
}

void decodeForm(benchmark::State& state) {
  const Ref<Veldrin> window = implicit::Veldrin();
  const auto start = Clock::now();
  while (state.KeepRunning()) {
    _SetProperties(window, FormStreams.back());
    for (std::size_t row = 0; row < FormTable.size(); ++row) {
      _SetProperties(window->controls()[row], FormStreams[row]);
    }
  }
  const std::chrono::duration<double, std::micro> time = Clock::now() - start;
  checkLimit(state, time.count() / static_cast<double>(state.iterations()), LargestDecodingTime);
}

BENCHMARK(lookup)->Name("Classes/lookup");
BENCHMARK(invoke)->Name("Classes/invoke/against/call")->Iterations(300);
BENCHMARK(decodeForm)->Name("Form/decode")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace veldrin

int main(int count, char** arguments) {
  veldrin::reportBuilding();
  return veldrin::runHeldBenchmarks(count, arguments);
}
