#pragma once

#include <csignal>

#include "shell/objects/String.h"

namespace veldrin {

// How the OS asks the process to end: by a stop signal, which is SIGTERM, SIGINT or SIGHUP.

/// While one of these lives, a stop signal ends the process in order: the event loop ends as if the
/// user had quit, and a run in progress raises `EndException` at its next yield. The second signal
/// of a kind ends the process at once. A signal that was ignored at the start stays ignored. There
/// can be one guard at a time.
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

/// The stop signal that the process has received, 0 for none.
int stopSignal();

/// Its name, such as "SIGTERM"; empty for none.
String stopSignalName();

/// Forgets the stop signal, because the process goes on.
void dismissStop();

/// A descriptor that can be read once a stop signal has come, for a toolkit that waits. It is open
/// until the guard ends. -1 if the OS has none to give.
int stopSignalDescriptor();

namespace detail {
/// Set by the signal handler, cleared by whoever acts on the signal.
inline volatile std::sig_atomic_t stopPending = 0;
}  // namespace detail

/// Whether a stop signal has come that nothing has acted on.
inline bool isStopPending() {
  return detail::stopPending != 0;
}

/// Marks the pending stop signal as acted on. True if there was one.
bool acceptStop();

/// Accepts the stop signal and raises `EndException`.
[[noreturn]] void raiseStop();

}  // namespace veldrin
