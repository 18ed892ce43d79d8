#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace veldrin {

/// The calls that stood on the stack at one moment, by their addresses; to note them costs no
/// memory, and names are looked up when somebody asks.
class CallStack {
 public:
  /// Notes the calls down to the caller of the caller, the innermost first, as many as there is
  /// room for.
  void take();

  /// The calls as texts, the innermost first: the name of the function where the program has it,
  /// else the program and the place in it, as in "veldrin+0x1f40".
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  static constexpr std::size_t Most = 30;

  std::array<void*, Most> frames_{};
  std::size_t count_ = 0;
};

}  // namespace veldrin
