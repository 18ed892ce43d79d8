#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "shell/objects/String.h"

namespace veldrin {

// Numbers as text and back. Nothing here asks the C locale: "47.5" is read on every desktop.
//
//   number   = blank* (sign | minus)? mantissa exponent?
//   mantissa = digit+ ("." digit*)? | "." digit+
//   exponent = ("e" | "E") sign? digit+
//   sign     = "+" | "-"           blank = " " | tab
//   minus    = U+2212 in UTF-8, the minus sign of web pages; an exponent has none

/// A number at the start of a text, and how many bytes it took, blanks before it included.
struct NumberPrefix {
  double value;
  std::size_t length;
};

/// Reads the longest number that the text begins with; nothing where it begins with none. A number
/// beyond the doubles is an infinity or a zero of its sign.
std::optional<NumberPrefix> readNumber(std::string_view text);

/// The number at the start of a text as a double; 0.0 where there is none. It stops at the first
/// character that does not belong to a number: `Val("47.5 north")` is 47.5, `Val("nan")` is 0.0.
double Val(const String& text);

/// The decimal digits of an integer, behind a "-" if it is negative: `Str(-5)` is "-5".
String Str(std::int32_t value);

/// The value, rounded to a whole number (a half away from zero), with at least as many digits as
/// the pattern has zeros: `Format(7.0, "00"_s)` is "07". A larger number shows all its digits; what
/// is not finite is "inf", "-inf" or "nan".
String Format(double value, const String& pattern);

/// The one-character text of an ASCII code (0 to 127). Raises `OutOfBoundsException` for any other.
String Chr(std::int32_t code);

}  // namespace veldrin
