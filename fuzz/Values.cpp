#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Fuzz.h"
#include "shell/values/Date.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"

// Reading and writing numbers and dates, compared with the C library and with std::chrono.

namespace veldrin::fuzz {
namespace {

/// The text for strtod: replaces a leading U+2212 by "-", and cuts the text at the first character
/// that is no blank and in no decimal number, as in "inf".
std::string forStrtod(std::string_view text) {
  constexpr std::string_view Minus = "\u2212";
  std::string all(text);
  const std::size_t sign = all.find_first_not_of(" \t");
  if (sign != std::string::npos && all.compare(sign, Minus.size(), Minus) == 0) {
    all.replace(sign, Minus.size(), "-");
  }
  const std::size_t end = all.find_first_not_of("0123456789+-.eE \t");
  return all.substr(0, end);
}

bool sameBits(double one, double other) {
  return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
}

void checkVal(const std::string& text) {
  // A buffer of exact size, so that AddressSanitizer sees a read past the end.
  const std::vector<char> bytes(text.begin(), text.end());
  const auto number = readNumber(std::string_view(bytes.data(), bytes.size()));
  const std::string plain = forStrtod(text);
  char* end = nullptr;
  const double expected = std::strtod(plain.c_str(), &end);
  require(number.has_value() == (end != plain.c_str()),
          "readNumber finds a number exactly if strtod does");
  require(sameBits(Val(String(text)), number ? expected : 0.0), "Val equals strtod");
  if (!number) return;
  require(number->length <= text.size(), "the number ends within the text");
  require(forStrtod(text.substr(0, number->length)).size() ==
              static_cast<std::size_t>(end - plain.c_str()),
          "readNumber and strtod end at the same character");
  const auto again = readNumber(text.substr(0, number->length));
  require(again && sameBits(again->value, expected),
          "reading only the number's characters gives the same number");
}

void checkFormat(double value, const std::string& pattern) {
  const String shown = Format(value, String(pattern));
  if (!std::isfinite(value)) {
    const char* const expected = std::isnan(value) ? "nan" : value < 0.0 ? "-inf" : "inf";
    require(shown == expected, "infinity and NaN have a text");
    return;
  }
  char digits[400];
  const double whole = std::round(value);
  static_cast<void>(std::snprintf(digits, sizeof digits, "%.0f", std::fabs(whole)));
  const auto zeros = static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '0'));
  std::string expected(digits);
  if (expected.size() < zeros) expected.insert(0, zeros - expected.size(), '0');
  if (whole < 0.0) expected.insert(0, "-");
  require(shown == expected, "Format equals printf");
}

std::chrono::sys_days daysOf(const Date& date) {
  using namespace std::chrono;
  return sys_days(year(date.Year()) / month(static_cast<unsigned>(date.Month())) /
                  day(static_cast<unsigned>(date.Day())));
}

/// Whether std::chrono supports the year, with room for the days that `writeField` adds.
bool isChronoYear(const Date& date) {
  return std::abs(static_cast<std::int64_t>(date.Year())) < 32000;
}

void checkDate(const Ref<Date>& date) {
  const bool isLeap = date->Year() % 4 == 0 && (date->Year() % 100 != 0 || date->Year() % 400 == 0);
  const std::int32_t lengths[] = {31, isLeap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  require(date->Month() >= 1 && date->Month() <= 12, "the month is 1 to 12");
  require(date->Day() >= 1 && date->Day() <= lengths[date->Month() - 1],
          "the day exists in the month");
  require(date->Hour() >= 0 && date->Hour() < 24 && date->Minute() >= 0 && date->Minute() < 60 &&
              date->Second() >= 0 && date->Second() < 60,
          "the time of day is valid");
  if (isChronoYear(*date)) {
    const std::chrono::weekday weekday(daysOf(*date));
    require(date->DayOfWeek() == static_cast<std::int32_t>(weekday.c_encoding()) + 1,
            "the day of the week equals std::chrono");
  }
  constexpr double ExactLimit = 9007199254740992.0;
  if (std::fabs(date->TotalSeconds()) < ExactLimit) {
    const Ref<Date> other = New<Date>();
    other->TotalSeconds(date->TotalSeconds());
    require(date->Operator_Compare(other) == 0, "TotalSeconds restores the date");
  }
  Ref<Date> read;
  require(ParseDate(date->ShortDate(), read), "ParseDate reads a short date");
  require(
      read->Year() == date->Year() && read->Month() == date->Month() && read->Day() == date->Day(),
      "ParseDate reads the same day");
}

/// Sets a field; out-of-range values carry over.
void writeField(const Ref<Date>& date, FuzzedDataProvider& input) {
  const bool isSmall = input.ConsumeBool();
  const auto value = isSmall ? input.ConsumeIntegralInRange<std::int32_t>(-400, 4000)
                             : input.ConsumeIntegral<std::int32_t>();
  const bool isChecked = isChronoYear(*date) && isSmall;
  const std::chrono::sys_days before = isChecked ? daysOf(*date) : std::chrono::sys_days();
  const std::int32_t dayBefore = date->Day();
  const double secondsBefore = date->TotalSeconds();
  const std::int32_t hourBefore = date->Hour();
  switch (input.ConsumeIntegralInRange(0, 6)) {
    case 0:
      date->Year(value);
      break;
    case 1:
      date->Month(value);
      break;
    case 2:
      date->Day(value);
      require(!isChecked || daysOf(*date) - before == std::chrono::days(value - dayBefore),
              "setting Day moves by whole days");
      break;
    case 3:
      date->Hour(value);
      require(!isChecked || date->TotalSeconds() - secondsBefore == (value - hourBefore) * 3600.0,
              "setting Hour moves by whole hours");
      break;
    case 4:
      date->Minute(value);
      break;
    case 5:
      date->Second(value);
      break;
    default:
      date->TotalSeconds(input.ConsumeBool() ? value * 86400.0
                                             : input.ConsumeFloatingPoint<double>());
  }
}

ShortDateForm formOf(FuzzedDataProvider& input) {
  ShortDateForm form;
  form.order = input.PickValueInArray(
      {ShortDateForm::Order::MonthDayYear, ShortDateForm::Order::DayMonthYear,
       ShortDateForm::Order::YearMonthDay, ShortDateForm::Order::YearDayMonth});
  form.separator = input.PickValueInArray({'/', '.', '-'});
  return form;
}

/// `ParseDate` sets a valid date at midnight or, for an invalid text, leaves the date nil.
void checkParseDate(const std::string& text) {
  Ref<Date> date;
  if (ParseDate(String(text), date)) {
    checkDate(date);
    require(date->Hour() + date->Minute() + date->Second() == 0, "a parsed date is at midnight");
  } else {
    require(!date, "an invalid text leaves the date nil");
  }
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  fuzz::World& world = fuzz::World::instance();
  const fuzz::ObjectLeakGuard objectLeakGuard;
  FuzzedDataProvider input(data, size);
  world.host.form = fuzz::formOf(input);
  switch (input.ConsumeIntegralInRange(0, 3)) {
    case 0:
      fuzz::checkVal(input.ConsumeRemainingBytesAsString());
      break;
    case 1: {
      const double value = input.ConsumeBool()
                               ? input.ConsumeIntegral<std::int16_t>() / 4.0
                               : std::bit_cast<double>(input.ConsumeIntegral<std::uint64_t>());
      fuzz::checkFormat(value, input.ConsumeRemainingBytesAsString());
      break;
    }
    case 2:
      fuzz::checkParseDate(input.ConsumeRemainingBytesAsString());
      break;
    default: {
      const Ref<Date> date = New<Date>();
      while (input.remaining_bytes() > 0) {
        fuzz::writeField(date, input);
        fuzz::checkDate(date);
      }
    }
  }
  return 0;
}
