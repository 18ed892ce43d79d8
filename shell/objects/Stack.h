#pragma once

#include <cstdint>

namespace veldrin {

namespace detail {
/// The lowest allowed frame address. 0 disables the check, as before `measureStack`.
inline std::uintptr_t stackLimit = 0;
[[noreturn]] void raiseStackOverflow();
}  // namespace detail

/// `RuntimeStackCheck` raises when fewer bytes than this are left.
inline constexpr std::uintptr_t StackReserve = std::uintptr_t{64} * 1024;

/// Sets the limit of the check from the stack size of the process. Call in the main thread.
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

/// Whether fewer than 16 KiB are left until `RuntimeStackCheck` raises. Never raises itself.
inline bool RuntimeStackIsLow() {
  constexpr std::uintptr_t Margin = std::uintptr_t{16} * 1024;
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  return detail::stackLimit != 0 && here < detail::stackLimit + Margin;
}

}  // namespace veldrin
