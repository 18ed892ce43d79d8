#include "shell/SystemHost.h"

#include <langinfo.h>

#include <algorithm>
#include <clocale>
#include <ctime>
#include <limits>
#include <string>

namespace veldrin {
namespace {

/// The form of the environment's date setting. Where none is set the C locale's own pattern comes
/// back, which has a year of two digits but the order that is wanted.
ShortDateForm environmentForm() {
  const locale_t locale = newlocale(LC_TIME_MASK, "", nullptr);
  if (locale == nullptr) return {};
  const ShortDateForm form = shortDateFormOf(nl_langinfo_l(D_FMT, locale));
  freelocale(locale);
  return form;
}

/// "D" and "F" stand for three others.
std::string expanded(std::string_view pattern) {
  std::string result;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const std::string_view rest = pattern.substr(at);
    const bool american = rest.starts_with("%D");
    const bool iso = rest.starts_with("%F");
    if (american || iso) {
      result += american ? "%m/%d/%y" : "%Y-%m-%d";
      ++at;
    } else {
      result += pattern[at];
    }
  }
  return result;
}

char numberOf(char conversion) {
  switch (conversion) {
    case 'd':
    case 'e':
      return 'd';
    case 'm':
      return 'm';
    case 'y':
    case 'Y':
      return 'y';
    default:
      return '\0';
  }
}

}  // namespace

SystemHost::SystemHost() : form_(environmentForm()) {}

std::int64_t SystemHost::now() const {
  return std::time(nullptr);
}

CivilMoment SystemHost::localTime(std::int64_t moment) const {
  tm fields{};
  const auto seconds = static_cast<time_t>(moment);
  tzset();
  if (localtime_r(&seconds, &fields) == nullptr) return {1970, 1, 1, 0, 0, 0};
  const std::int64_t year = std::min<std::int64_t>(std::int64_t{fields.tm_year} + 1900,
                                                   std::numeric_limits<std::int32_t>::max());
  // A leap second of a zone that has them is shown as the second before it.
  return {static_cast<std::int32_t>(year),
          fields.tm_mon + 1,
          fields.tm_mday,
          fields.tm_hour,
          fields.tm_min,
          fields.tm_sec > 59 ? 59 : fields.tm_sec};
}

double SystemHost::gmtOffset(const CivilMoment& moment) const {
  constexpr std::int32_t LargestYear = 1'000'000;
  if (moment.year < -LargestYear || moment.year > LargestYear) return 0.0;
  tm fields{};
  fields.tm_year = moment.year - 1900;
  fields.tm_mon = moment.month - 1;
  fields.tm_mday = moment.day;
  fields.tm_hour = moment.hour;
  fields.tm_min = moment.minute;
  fields.tm_sec = moment.second;
  fields.tm_isdst = -1;
  const std::int64_t inGreenwich = std::mktime(&fields);
  // mktime brings a moment that the zone leaves out to one that exists; its fields say which.
  const std::int64_t day =
      dayNumber(std::int64_t{fields.tm_year} + 1900, fields.tm_mon + 1, fields.tm_mday);
  const std::int64_t local =
      ((day * 24 + fields.tm_hour) * 60 + fields.tm_min) * 60 + fields.tm_sec;
  return static_cast<double>(local - inGreenwich) / 3600.0;
}

ShortDateForm shortDateFormOf(std::string_view pattern) {
  const std::string text = expanded(pattern);
  std::string order;
  char separator = '\0';
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      if (order.size() == 1 && separator == '\0') separator = text[at];
      continue;
    }
    // Flags and the modifiers E and O stand between the mark and the conversion.
    at = text.find_first_not_of("-_0^#EO", at + 1);
    if (at == std::string::npos) break;
    const char number = numberOf(text[at]);
    if (number != '\0' && order.find(number) == std::string::npos) order += number;
  }
  using enum ShortDateForm::Order;
  ShortDateForm form;
  if (order == "dmy") {
    form.order = DayMonthYear;
  } else if (order == "ymd") {
    form.order = YearMonthDay;
  } else if (order != "mdy") {
    return form;
  }
  if (separator != '\0' && std::string_view("/.- ").find(separator) != std::string_view::npos) {
    form.separator = separator;
  }
  return form;
}

}  // namespace veldrin
