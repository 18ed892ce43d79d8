// What the benchmark programs share: a window without a screen to run in, and limits.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "apps/VeldrinParts.h"
#include "shell/host/SystemHost.h"
#include "toolkits/headless/HeadlessToolkit.h"

namespace veldrin {

/// Whether any value has been above its limit.
inline bool limitBroken = false;

/// Marks a benchmark whose value is above its limit.
inline void hold(benchmark::State& state, double value, double limit) {
  if (value <= limit) return;
  state.SetLabel("above the limit");
  limitBroken = true;
}

/// Runs the registered benchmarks with the window open, `first` ahead of them. The result is the
/// exit status of the program.
inline int runHeldBenchmarks(
    int count, char** arguments, void (*first)() = [] {}) {
  SystemHost host;
  HeadlessToolkit toolkit;
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return EXIT_FAILURE;
  toolkit.job = [first] {
    first();
    benchmark::RunSpecifiedBenchmarks();
  };
  const int status = runProcess(host, toolkit, VeldrinParts);
  return status == 0 && !limitBroken ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace veldrin
