#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace veldrin {

/// A stack trace. `capture()` stores only addresses; `names()` looks up the names.
class CallStack {
 public:
  /// Captures up to `MaximumDepth` calls, innermost first, without this function and its caller.
  void capture();

  /// The function of each call, innermost first: its name if known, else module and offset, such as
  /// "veldrin+0x1f40", else the address.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  static constexpr std::size_t MaximumDepth = 30;

  std::array<void*, MaximumDepth> frames_{};
  std::size_t count_ = 0;
};

}  // namespace veldrin
