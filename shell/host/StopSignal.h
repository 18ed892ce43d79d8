#pragma once

#include <csignal>

#include "shell/objects/String.h"

namespace veldrin {

// A stop signal asks the process to end: SIGTERM, SIGINT or SIGHUP.

/// While a guard exists, a stop signal ends the process in an orderly way. The event loop ends as
/// if the user had quit, and a running loop raises `EndException` at its next yield. A second
/// signal of the same kind ends the process at once. A signal that is already ignored or handled
/// stays so. Only one guard may exist at a time.
class StopSignalGuard {
 public:
  StopSignalGuard();
  StopSignalGuard(const StopSignalGuard&) = delete;
  StopSignalGuard& operator=(const StopSignalGuard&) = delete;
  ~StopSignalGuard();

 private:
  static constexpr int Signals[] = {SIGTERM, SIGINT, SIGHUP};
  struct sigaction before_[3]{};
};

/// The number of the last stop signal, or 0 if there was none or `dismissStop` has forgotten it.
int stopSignal();

/// The name of `stopSignal()`, such as "SIGTERM"; empty for 0.
String stopSignalName();

/// Forgets the stop signal. Call if the user or a handler refuses to end the process.
void dismissStop();

/// Makes an accepted stop signal pending again. Call if its `EndException` was dropped.
void makeStopPending();

/// A descriptor that becomes readable when a stop signal arrives, for a toolkit's event loop. The
/// guard's destructor closes it. -1 if the OS has no free descriptor.
int stopSignalDescriptor();

namespace detail {
/// Set by the signal handler, cleared by `acceptStop`.
inline volatile std::sig_atomic_t stopPending = 0;
}  // namespace detail

/// Whether a stop signal has arrived and `acceptStop` has not been called since.
inline bool isStopPending() {
  return detail::stopPending != 0;
}

/// Clears the pending stop signal. Returns whether there was one.
bool acceptStop();

/// Accepts the stop signal and raises `EndException`.
[[noreturn]] void raiseStop();

}  // namespace veldrin
