#pragma once

#include <csignal>

#include "shell/objects/String.h"

namespace veldrin {

/// While one of these lives, SIGTERM, SIGINT and SIGHUP end the process in order: the event loop
/// ends as if a person had quit, and a run in progress raises `EndException` at its next yield. The
/// second signal of a kind ends the process at once, and one that was ignored at the start stays
/// ignored. There can be one at a time.
class StopWatch {
 public:
  StopWatch();
  StopWatch(const StopWatch&) = delete;
  StopWatch& operator=(const StopWatch&) = delete;
  ~StopWatch();

 private:
  static constexpr int Signals[] = {SIGTERM, SIGINT, SIGHUP};
  struct sigaction before_[3]{};
};

/// The signal by which the system has asked the process to end, 0 for none.
int askedToStop();

/// The process goes on: nobody asks it to end any more.
void forgetStop();

/// Its name, such as "SIGTERM".
String nameOfStop();

/// Can be read once the system has asked; for a toolkit that waits for something else. It is open
/// until the `StopWatch` goes; -1 where there is none to be had.
int stopDescriptor();

namespace detail {
/// Set by the handler of the signals; whoever acts on it clears it.
inline volatile std::sig_atomic_t stopPending = 0;
}  // namespace detail

/// Whether a signal has come that nobody has acted on so far.
inline bool stopIsPending() {
  return detail::stopPending != 0;
}

/// Acts on the signal: true once for each.
bool takeStop();

/// Acts on the signal by raising `EndException`.
[[noreturn]] void raiseStop();

}  // namespace veldrin
