#pragma once

#include <cstdint>

namespace veldrin {

// Civil days of the proleptic Gregorian calendar, with a year 0 before the year 1. A day number
// counts days since 1970-01-01, which is day 0; 2000-03-01 is day 11,017.

// Leap seconds are ignored.
inline constexpr double MinutesOfHour = 60.0;
inline constexpr std::int32_t MinutesOfDay = 1440;
inline constexpr std::int32_t SecondsOfDay = 86400;

/// A calendar day.
struct CivilDay {
  std::int64_t year;
  std::int32_t month;  ///< 1 to 12
  std::int32_t day;    ///< 1 to `daysInMonth`

  bool operator==(const CivilDay&) const = default;
};

/// A date and a time of day, in local time.
struct CivilMoment {
  std::int32_t year;
  std::int32_t month;   ///< 1 to 12
  std::int32_t day;     ///< 1 to `daysInMonth`
  std::int32_t hour;    ///< 0 to 23
  std::int32_t minute;  ///< 0 to 59
  std::int32_t second;  ///< 0 to 59

  bool operator==(const CivilMoment&) const = default;
};

/// The number of days in a month; `month` is 1 to 12.
constexpr std::int32_t daysInMonth(std::int64_t year, std::int32_t month) {
  const bool isLeapYear = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  if (month == 2) return isLeapYear ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// The day number of a date in a year from -2^40 to 2^40. `month` is 1 to 12. `day` may be outside
/// the month: 0 is the last day of the previous month. The computation counts from March, so that
/// the leap day comes last. Source: E. G. Richards, Calendars, in the Explanatory Supplement to the
/// Astronomical Almanac, 3rd edition, 15.11.
constexpr std::int64_t dayNumber(std::int64_t year, std::int32_t month, std::int64_t day) {
  const std::int64_t marchYear = month <= 2 ? year - 1 : year;
  const std::int64_t era = (marchYear >= 0 ? marchYear : marchYear - 399) / 400;
  const std::int64_t yearOfEra = marchYear - era * 400;
  const std::int64_t daysBeforeMonth = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + daysBeforeMonth;
  return era * 146097 + dayOfEra - 719468 + (day - 1);
}

/// The inverse of `dayNumber`.
constexpr CivilDay civilDay(std::int64_t number) {
  const std::int64_t shifted = number + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t dayOfEra = shifted - era * 146097;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t daysSinceMarch1 =
      dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t monthsSinceMarch = (5 * daysSinceMarch1 + 2) / 153;
  return {yearOfEra + era * 400 + (monthsSinceMarch >= 10 ? 1 : 0),
          static_cast<std::int32_t>(monthsSinceMarch < 10 ? monthsSinceMarch + 3
                                                          : monthsSinceMarch - 9),
          static_cast<std::int32_t>(daysSinceMarch1 - (153 * monthsSinceMarch + 2) / 5 + 1)};
}

/// The day of the week: 1 is Sunday, 7 is Saturday.
constexpr std::int32_t dayOfWeek(std::int64_t number) {
  const std::int64_t remainder = (number + 4) % 7;
  return static_cast<std::int32_t>(remainder < 0 ? remainder + 7 : remainder) + 1;
}

/// The day of the year: 1 is January 1, and December 31 is 365 or 366.
constexpr std::int32_t dayOfYear(std::int64_t number) {
  return static_cast<std::int32_t>(number - dayNumber(civilDay(number).year, 1, 1)) + 1;
}

/// The ISO 8601 week, 1 to 53. A week begins on Monday and belongs to the year of its Thursday, so
/// January 1 may lie in the last week of the previous year.
constexpr std::int32_t weekOfYear(std::int64_t number) {
  const std::int32_t sinceMonday = (dayOfWeek(number) + 5) % 7;
  return (dayOfYear(number - sinceMonday + 3) - 1) / 7 + 1;
}

}  // namespace veldrin
