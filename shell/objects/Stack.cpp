#include "shell/objects/Stack.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

/// The highest known address of the stack: the end of the environment, which the OS puts above the
/// first frame. Skips variables that were set later and lie on the heap.
std::uintptr_t stackTop(std::uintptr_t frame, std::uintptr_t size) {
  std::uintptr_t top = frame;
  for (char** text = environ; text != nullptr && *text != nullptr; ++text) {
    const auto end = reinterpret_cast<std::uintptr_t>(*text + std::strlen(*text));
    if (end > top && end - frame < size) top = end;
  }
  return top;
}

}  // namespace

void measureStack() {
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0) return;
  constexpr rlim_t SizeIfUnlimited = rlim_t{1} << 28;  // 256 MiB
  if (limit.rlim_cur == RLIM_INFINITY) limit.rlim_cur = SizeIfUnlimited;
  const auto frame = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  const std::uintptr_t size = std::min<std::uintptr_t>(limit.rlim_cur, frame);
  detail::stackLimit = stackTop(frame, size) - size + StackReserve;
}

void detail::raiseStackOverflow() {
  // Suspends the check: creating the exception uses the reserve and may build its class.
  struct Suspension {
    const std::uintptr_t limit = std::exchange(stackLimit, 0);
    ~Suspension() { stackLimit = limit; }
  };
  Ref<StackOverflowException> exception;
  {
    const Suspension suspension;
    exception = New<StackOverflowException>();
  }
  RuntimeRaiseException(exception);
}

}  // namespace veldrin
