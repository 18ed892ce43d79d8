#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace veldrin {

/// A text that can be a template argument, so that what is made from a literal is made by the
/// compiler. `Size` counts the characters without a terminator; zero bytes are allowed.
template <std::size_t Size>
struct FixedString {
  std::array<char, Size> characters{};

  constexpr FixedString() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): "Date" is meant to become one by itself.
  constexpr FixedString(const char (&literal)[Size + 1]) {
    std::copy_n(literal, Size, characters.begin());
  }

  /// In bytes, and the text itself.
  [[nodiscard]] static constexpr std::size_t size() { return Size; }
  [[nodiscard]] constexpr std::string_view view() const { return {characters.data(), Size}; }

  /// The two texts one behind the other.
  template <std::size_t Other>
  constexpr FixedString<Size + Other> operator+(const FixedString<Other>& other) const {
    FixedString<Size + Other> sum;
    std::copy_n(characters.begin(), Size, sum.characters.begin());
    std::copy_n(other.characters.begin(), Other, sum.characters.begin() + Size);
    return sum;
  }

  constexpr bool operator==(const FixedString&) const = default;
};

template <std::size_t Size>
FixedString(const char (&)[Size]) -> FixedString<Size - 1>;

}  // namespace veldrin
