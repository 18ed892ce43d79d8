#include "shell/values/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

bool isSign(char character) {
  return character == '+' || character == '-';
}

/// The digits of a number, with or without a decimal point.
struct Mantissa {
  std::size_t end;        ///< one past the last character
  std::size_t digits;     ///< the count of all digits; 0 if there is no mantissa
  std::size_t decimals;   ///< the count of digits after the point
  std::uint64_t integer;  ///< all digits as one integer, modulo 2^64
};

Mantissa readMantissa(std::string_view text, std::size_t at) {
  Mantissa mantissa{at, 0, 0, 0};
  bool afterPoint = false;
  for (; at < text.size() && (isDigit(text[at]) || (text[at] == '.' && !afterPoint)); ++at) {
    if (text[at] == '.') {
      afterPoint = true;
      continue;
    }
    mantissa.integer = mantissa.integer * 10 + static_cast<std::uint64_t>(text[at] - '0');
    ++mantissa.digits;
    mantissa.decimals += afterPoint ? 1 : 0;
  }
  mantissa.end = at;
  return mantissa;
}

/// The first position from `at` on without a digit.
std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

/// The end of the exponent that begins at `at`, or `at` if there is none.
std::size_t exponentEnd(std::string_view text, std::size_t at) {
  if (at == text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
  std::size_t digits = at + 1;
  if (digits < text.size() && isSign(text[digits])) ++digits;
  const std::size_t end = skipDigits(text, digits);
  return end == digits ? at : end;
}

/// The value on overflow or underflow, without the sign. The exponent moves the decimal point. If
/// the first nonzero digit is then before the point, the value is infinity, else zero.
double valueOutOfRange(std::string_view mantissa, std::string_view exponent) {
  const std::size_t first = mantissa.find_first_not_of("0.");
  if (first == std::string_view::npos) return 0.0;
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  if (exponent.empty()) return place > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  exponent.remove_prefix(1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::int64_t power = 0;
  const auto [end, error] = std::from_chars(exponent.begin(), exponent.end(), power);
  // An exponent beyond 64 bits outweighs any mantissa that fits in memory.
  if (error != std::errc()) power = exponent.front() == '-' ? INT64_MIN : INT64_MAX;
  // Compared instead of added, because the sum may overflow.
  return power > -place ? std::numeric_limits<double>::infinity() : 0.0;
}

/// The value of a mantissa and an exponent of any length. The exponent must directly follow the
/// mantissa in memory.
double longNumber(std::string_view mantissa, std::string_view exponent) {
  double value = 0.0;
  const auto [end, error] =
      std::from_chars(mantissa.data(), mantissa.data() + mantissa.size() + exponent.size(), value);
  return error == std::errc() ? value : valueOutOfRange(mantissa, exponent);
}

}  // namespace

std::optional<NumberPrefix> readNumber(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size() && (text[start] == ' ' || text[start] == '\t')) ++start;
  constexpr std::string_view Minus = "\u2212";
  const char front = start < text.size() ? text[start] : '\0';
  bool isNegative = front == '-';
  if (isSign(front)) {
    ++start;
  } else if (front == Minus.front() && text.substr(start).starts_with(Minus)) {
    isNegative = true;
    start += Minus.size();
  }
  const Mantissa mantissa = readMantissa(text, start);
  if (mantissa.digits == 0) return std::nullopt;
  const std::size_t end = exponentEnd(text, mantissa.end);
  // Fast path for most numbers that a user types. With up to 15 digits, integer and power of ten
  // are exact, so their quotient is correctly rounded: W. D. Clinger, How to Read Floating Point
  // Numbers Accurately, 1990.
  constexpr std::array PowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool isExact = end == mantissa.end && mantissa.digits < PowersOfTen.size();
  const double value = isExact
                           ? static_cast<double>(mantissa.integer) / PowersOfTen[mantissa.decimals]
                           : longNumber(text.substr(start, mantissa.end - start),
                                        text.substr(mantissa.end, end - mantissa.end));
  return NumberPrefix{isNegative ? -value : value, end};
}

double Val(const String& text) {
  const auto number = readNumber(text.view());
  return number ? number->value : 0.0;
}

String Str(std::int32_t value) {
  std::array<char, std::numeric_limits<std::int32_t>::digits10 + 2> digits{};
  const auto [end, error] = std::to_chars(digits.begin(), digits.end(), value);
  return String(std::string_view(digits.data(), end));
}

String detail::formatAny(double value, const String& pattern) {
  if (!std::isfinite(value)) return std::isnan(value) ? "nan"_s : value < 0.0 ? "-inf"_s : "inf"_s;
  const auto zeros = static_cast<std::size_t>(std::ranges::count(pattern.view(), '0'));
  const double whole = std::round(value);
  std::array<char, std::numeric_limits<double>::max_exponent10 + 2> digits{};
  const auto [end, error] =
      std::to_chars(digits.begin(), digits.end(), std::fabs(whole), std::chars_format::fixed, 0);
  const std::string_view shown(digits.data(), end);
  std::string text = whole < 0.0 ? "-" : "";
  text.append(zeros - std::min(zeros, shown.size()), '0').append(shown);
  return String(text);
}

String Chr(std::int32_t code) {
  if (code < 0 || code > 127) Raise<OutOfBoundsException>();
  const char character = static_cast<char>(code);
  return String(std::string_view(&character, 1));
}

}  // namespace veldrin
