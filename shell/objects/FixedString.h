#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace veldrin {

/// A string literal as a template argument. `Size` excludes the terminator; zero bytes are allowed.
template <std::size_t Size>
struct FixedString {
  std::array<char, Size> characters{};

  constexpr FixedString() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): literals convert.
  constexpr FixedString(const char (&literal)[Size + 1]) {
    std::copy_n(literal, Size, characters.begin());
  }

  [[nodiscard]] static constexpr std::size_t size() { return Size; }
  [[nodiscard]] constexpr std::string_view view() const { return {characters.data(), Size}; }

  /// A new text: this one, then `other`.
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
