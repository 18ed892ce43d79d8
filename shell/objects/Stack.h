#pragma once

#include <cstdint>

namespace veldrin {

namespace detail {
/// The lowest address that a frame may have; 0 until `RuntimeInit` has measured the stack.
inline std::uintptr_t stackLimit = 0;
[[noreturn]] void raiseStackOverflow();
}  // namespace detail

/// What is left of the stack when `RuntimeStackCheck` begins to raise, in bytes.
inline constexpr std::uintptr_t StackReserve = std::uintptr_t{64} * 1024;

/// Measures the stack of the calling thread, which is to be the program's one thread, by the
/// process's limit.
void measureStack();

/// Raises `StackOverflowException` when less than `StackReserve` of the stack is left. It stands
/// where a call can nest as deep as some input says (the reading of type codes, the building of
/// classes, the raising of events); the reserve carries the flat calls in between.
inline void RuntimeStackCheck() {
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  if (here < detail::stackLimit) detail::raiseStackOverflow();
}

}  // namespace veldrin
