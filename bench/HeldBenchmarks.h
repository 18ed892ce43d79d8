// Shared by the benchmark programs: a headless window and the check of limits.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "apps/VeldrinParts.h"
#include "shell/host/SystemHost.h"
#include "toolkits/headless/HeadlessToolkit.h"

namespace veldrin {

inline bool isLimitBroken = false;

/// Marks the benchmark as failed if the value exceeds the limit.
inline void checkLimit(benchmark::State& state, double value, double limit) {
  if (value <= limit) return;
  state.SetLabel("above the limit");
  isLimitBroken = true;
}

/// Opens the window, calls `prepare`, runs the registered benchmarks. Returns the exit status.
inline int runHeldBenchmarks(
    int count, char** arguments, void (*prepare)() = [] {}) {
  SystemHost host;
  HeadlessToolkit toolkit;
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return EXIT_FAILURE;
  toolkit.job = [prepare] {
    prepare();
    benchmark::RunSpecifiedBenchmarks();
  };
  const int status = runProcess(host, toolkit, VeldrinParts);
  return status == 0 && !isLimitBroken ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace veldrin
