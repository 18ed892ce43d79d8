#pragma once

#include <cstdint>

namespace veldrin {

namespace detail {
/// The lowest allowed frame address; 0 until `measureStack` has run.
inline std::uintptr_t stackLimit = 0;
[[noreturn]] void raiseStackOverflow();
}  // namespace detail

/// `RuntimeStackCheck` raises when fewer bytes than this are left.
inline constexpr std::uintptr_t StackReserve = std::uintptr_t{64} * 1024;

/// Sets the stack limit of the calling thread from the process limit. Call from the main thread.
void measureStack();

/// Raises `StackOverflowException` if less than `StackReserve` of the stack is left. Every call
/// through a class table makes this check: methods, event handlers, delegates and lifecycle hooks.
/// So endless recursion through the tables ends in an exception, and method bodies need no check.
/// Functions whose recursion depth depends on input (type codes, class building) also check. Direct
/// calls between methods have a fixed depth, which fits in the reserve.
inline void RuntimeStackCheck() {
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  if (here < detail::stackLimit) detail::raiseStackOverflow();
}

/// Whether the stack is close to the limit of `RuntimeStackCheck`; for functions that must not
/// raise.
inline bool RuntimeStackIsLow() {
  constexpr std::uintptr_t Margin = std::uintptr_t{16} * 1024;
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  return detail::stackLimit != 0 && here < detail::stackLimit + Margin;
}

}  // namespace veldrin
