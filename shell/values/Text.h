#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "shell/objects/String.h"

namespace veldrin {

// Converts numbers to text and back, independently of the C locale.
//
//   number   = blank* (sign | minus)? mantissa exponent?
//   mantissa = digit+ ("." digit*)? | "." digit+
//   exponent = ("e" | "E") sign? digit+
//   sign     = "+" | "-"           blank = " " | tab
//   minus    = U+2212 in UTF-8, the minus sign of web pages; not allowed in an exponent

/// Whether the character is "0" to "9".
constexpr bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// A number at the start of a text, and its length in bytes including leading blanks.
struct NumberPrefix {
  double value;
  std::size_t length;
};

/// Reads the longest number at the start of the text; nullopt if there is none. Overflow gives an
/// infinity and underflow a zero, with the sign of the number.
std::optional<NumberPrefix> readNumber(std::string_view text);

/// The number at the start of a text, or 0.0 if there is none. Text after the number is ignored:
/// `Val("47.5 north")` is 47.5, `Val("nan")` is 0.0.
double Val(const String& text);

/// The decimal digits of an integer: `Str(-5)` is "-5".
String Str(std::int32_t value);

namespace detail {

/// "00" to "99" as constants: nearly every formatted number is one of these.
template <std::size_t... Number>
constexpr auto twoDigits(std::index_sequence<Number...> /*numbers*/) {
  constexpr auto digit = [](std::size_t value) {
    FixedString<1> text;
    text.characters[0] = static_cast<char>('0' + value);
    return text;
  };
  return std::array{ConstantText<digit(Number / 10) + digit(Number % 10)>...};
}
inline constexpr auto TwoDigits = twoDigits(std::make_index_sequence<100>());

/// `Format` without the fast path.
String formatAny(double value, const String& pattern);

}  // namespace detail

/// The value, rounded to a whole number (a half away from zero), with at least as many digits as
/// the pattern has zeros: `Format(7.0, "00"_s)` is "07". Infinities and NaN give "inf", "-inf" and
/// "nan".
inline String Format(double value, const String& pattern) {
  if (pattern.record() == ("00"_s).record() && value >= 0.0 && value < 100.0) {
    const auto whole = static_cast<std::uint32_t>(value);
    if (whole == value) return detail::TwoDigits[whole];
  }
  return detail::formatAny(value, pattern);
}

/// The one-character text of an ASCII code (0 to 127). Raises `OutOfBoundsException` for any other.
String Chr(std::int32_t code);

}  // namespace veldrin
