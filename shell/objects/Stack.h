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
/// once in every call that goes through a table: in the thunk of a method, in the call of an
/// event's handler, of a delegate's target and of a step of an object's life. So whatever calls
/// itself by a table ends in an exception, and no method's body has to check. It stands besides
/// where a call nests as deep as some input says (the reading of type codes, the building of
/// classes). Direct calls among the program's own methods have a fixed depth, which fits in the
/// reserve.
inline void RuntimeStackCheck() {
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  if (here < detail::stackLimit) detail::raiseStackOverflow();
}

/// Whether so little of the stack is left that a call which may not raise had better wait: some way
/// above the point where `RuntimeStackCheck` begins to.
inline bool RuntimeStackIsLow() {
  constexpr std::uintptr_t Margin = std::uintptr_t{16} * 1024;
  const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  return detail::stackLimit != 0 && here < detail::stackLimit + Margin;
}

}  // namespace veldrin
