#include "shell/host/StopSignal.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

volatile std::sig_atomic_t lastSignal = 0;
/// The reading and the writing end of the pipe of `stopSignalDescriptor`; -1 if there is no pipe.
volatile std::sig_atomic_t pipeEnds[2] = {-1, -1};

void wake() {
  const char byte = 0;
  if (pipeEnds[1] >= 0) static_cast<void>(::write(pipeEnds[1], &byte, 1));
}

void recordSignal(int signal) {
  const int error = errno;
  lastSignal = signal;
  makeStopPending();
  errno = error;
}

}  // namespace

StopSignalGuard::StopSignalGuard() {
  struct sigaction action {};
  action.sa_handler = recordSignal;
  // No SA_RESTART, so that the signal also interrupts a write that waits for its reader.
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  lastSignal = 0;
  detail::stopPending = 0;
  for (std::size_t index = 0; index < std::size(Signals); ++index) {
    ::sigaction(Signals[index], nullptr, &before_[index]);
    if (before_[index].sa_handler == SIG_DFL) ::sigaction(Signals[index], &action, nullptr);
  }
}

StopSignalGuard::~StopSignalGuard() {
  for (std::size_t index = 0; index < std::size(Signals); ++index) {
    ::sigaction(Signals[index], &before_[index], nullptr);
  }
  for (volatile std::sig_atomic_t& end : pipeEnds) {
    if (end >= 0) ::close(end);
    end = -1;
  }
}

int stopSignal() {
  return lastSignal;
}

void dismissStop() {
  lastSignal = 0;
}

void makeStopPending() {
  detail::stopPending = 1;
  wake();
}

String stopSignalName() {
  switch (lastSignal) {
    case SIGTERM:
      return "SIGTERM"_s;
    case SIGINT:
      return "SIGINT"_s;
    case SIGHUP:
      return "SIGHUP"_s;
    default:
      return {};
  }
}

int stopSignalDescriptor() {
  std::array<int, 2> ends{};
  if (pipeEnds[0] >= 0 || ::pipe(ends.data()) != 0) return pipeEnds[0];
  for (std::size_t end = 0; end < ends.size(); ++end) {
    ::fcntl(ends[end], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[end], F_SETFL, O_NONBLOCK);
    pipeEnds[end] = ends[end];
  }
  if (isStopPending()) wake();  // the signal arrived before the pipe existed
  return pipeEnds[0];
}

bool acceptStop() {
  char byte = 0;
  while (pipeEnds[0] >= 0 && ::read(pipeEnds[0], &byte, 1) > 0) {
  }
  return std::exchange(detail::stopPending, 0) != 0;
}

void raiseStop() {
  acceptStop();
  Raise<EndException>();
}

}  // namespace veldrin
