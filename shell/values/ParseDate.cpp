#include "shell/values/ParseDate.h"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "shell/values/Text.h"

namespace veldrin {
namespace {

// date      = blank* number separator number separator number "."? blank*
// separator = blank* mark blank* | blank+
// mark      = "/" | "." | "-"
// number    = "-"? digit+

struct Number {
  std::int64_t value;
  std::size_t digits;
  bool isNegative;
};

/// Reads a text from left to right. Plain loops make it fast, because the calendar of a year parses
/// two dates for each event.
class Parser {
 public:
  explicit Parser(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  /// Skips blanks, and returns whether there were any.
  bool skipBlanks() {
    const char* const before = at_;
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\t')) ++at_;
    return at_ != before;
  }

  /// Reads a separator. Returns its mark, ' ' if it is only blanks, or 0 if there is none.
  char separator() {
    const bool hasBlanks = skipBlanks();
    // After blanks, a "-" right before a digit is the sign of a year.
    const bool isSign = hasBlanks && end_ - at_ > 1 && *at_ == '-' && isDigit(at_[1]);
    const bool hasMark = at_ != end_ && (*at_ == '/' || *at_ == '.' || *at_ == '-');
    if (!hasMark || isSign) return hasBlanks ? ' ' : '\0';
    const char found = *at_++;
    skipBlanks();
    return found;
  }

  /// Skips an optional "." and blanks. Returns whether the text ends there.
  bool ends() {
    if (at_ == end_) return true;
    if (*at_ == '.') ++at_;
    skipBlanks();
    return at_ == end_;
  }

  /// Reads a number. `digits` is 0 if there is none, or if it has more than 12 digits.
  Number number() {
    const bool isNegative = at_ != end_ && *at_ == '-';
    if (isNegative) ++at_;
    const char* const first = at_;
    std::uint64_t value = 0;  // wraps around if there are too many digits
    for (; at_ != end_ && isDigit(*at_); ++at_) {
      value = value * 10 + static_cast<std::uint64_t>(*at_ - '0');
    }
    constexpr std::size_t MostDigits = 12;
    const auto digits = static_cast<std::size_t>(at_ - first);
    if (digits > MostDigits) return {0, 0, false};
    const auto magnitude = static_cast<std::int64_t>(value);
    return {isNegative ? -magnitude : magnitude, digits, isNegative};
  }

 private:
  const char* at_;
  const char* end_;
};

bool isShort(const Number& number) {
  return number.digits <= 2 && !number.isNegative;
}

std::optional<std::int64_t> yearOf(const Number& number) {
  if (number.digits >= 4) {
    using Years = std::numeric_limits<std::int32_t>;
    const bool fits = number.value >= Years::min() && number.value <= Years::max();
    return fits ? std::optional(number.value) : std::nullopt;
  }
  if (number.digits != 2 || number.isNegative) return std::nullopt;
  return number.value < 69 ? 2000 + number.value : 1900 + number.value;
}

/// The day with these numbers, if it exists.
std::optional<CivilDay> dayOf(const Number& year, const Number& month, const Number& day) {
  const auto fullYear = yearOf(year);
  if (!fullYear || !isShort(month) || !isShort(day)) return std::nullopt;
  if (month.value < 1 || month.value > 12) return std::nullopt;
  const auto numberOfMonth = static_cast<std::int32_t>(month.value);
  if (day.value < 1 || day.value > daysInMonth(*fullYear, numberOfMonth)) return std::nullopt;
  return CivilDay{*fullYear, numberOfMonth, static_cast<std::int32_t>(day.value)};
}

}  // namespace

std::optional<CivilDay> readDate(std::string_view text, const ShortDateForm& form) {
  Parser parser(text);
  parser.skipBlanks();
  const Number first = parser.number();
  const char firstMark = parser.separator();
  const Number second = parser.number();
  const char secondMark = parser.separator();
  const Number third = parser.number();
  if (firstMark == '\0' || secondMark == '\0' || !parser.ends()) return std::nullopt;
  using enum ShortDateForm::Order;
  const bool isIso = first.digits >= 4 && firstMark == '-' && secondMark == '-' &&
                     form != ShortDateForm{YearDayMonth, '-'};
  if (isIso || form.order == YearMonthDay) return dayOf(first, second, third);
  if (form.order == MonthDayYear) return dayOf(third, first, second);
  if (form.order == DayMonthYear) return dayOf(third, second, first);
  return dayOf(first, third, second);
}

bool ParseDate(const String& text, Ref<Date>& date) {
  const auto day = readDate(text.view(), InForce<Host>::get().shortDateForm());
  if (!day) return false;
  if (!date) date = New<Date>();
  date->startOf(*day);
  return true;
}

}  // namespace veldrin
