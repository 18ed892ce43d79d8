#pragma once

#include <cstdint>

namespace veldrin {

// Civil days of the proleptic Gregorian calendar: the calendar that the Gregorian reform brought
// in, reckoned back without end, with a year 0 before the year 1. A day is numbered by the days
// since 1970-01-01, which is day 0; 2000-03-01 is day 11,017.

// Leap seconds are ignored.
inline constexpr double MinutesOfHour = 60.0;
inline constexpr std::int32_t MinutesOfDay = 1440;
inline constexpr std::int32_t SecondsOfDay = 86400;

/// A day by its fields.
struct CivilDay {
  std::int64_t year;
  std::int32_t month;  // [1:12]
  std::int32_t day;    // [1:days of the month]

  bool operator==(const CivilDay&) const = default;
};

/// A moment by its fields, in local time.
struct CivilMoment {
  std::int32_t year;
  std::int32_t month;   // [1:12]
  std::int32_t day;     // [1:days of the month]
  std::int32_t hour;    // [0:23]
  std::int32_t minute;  // [0:59]
  std::int32_t second;  // [0:59]

  bool operator==(const CivilMoment&) const = default;
};

/// The number of days in a month; `month` is 1 to 12.
constexpr std::int32_t daysInMonth(std::int64_t year, std::int32_t month) {
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  if (month == 2) return leap ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// The number of a day, for years up to 2^40 either way. `month` is 1 to 12; `day` may be any
/// number and counts on from the month's first. The year is taken to begin in March, which puts the
/// leap day last: E. G. Richards, Calendars, in the Explanatory Supplement to the Astronomical
/// Almanac, 3rd edition, 15.11.
constexpr std::int64_t dayNumber(std::int64_t year, std::int32_t month, std::int64_t day) {
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468 + (day - 1);
}

/// The day of a number, the other way round.
constexpr CivilDay civilDay(std::int64_t number) {
  const std::int64_t shifted = number + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t dayOfEra = shifted - era * 146097;
  const std::int64_t yearOfEra =
      (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t month = (5 * dayOfYear + 2) / 153;
  return {yearOfEra + era * 400 + (month >= 10 ? 1 : 0),
          static_cast<std::int32_t>(month < 10 ? month + 3 : month - 9),
          static_cast<std::int32_t>(dayOfYear - (153 * month + 2) / 5 + 1)};
}

/// The day of the week of a day number: 1 is Sunday, 7 Saturday.
constexpr std::int32_t dayOfWeek(std::int64_t number) {
  const std::int64_t remainder = (number + 4) % 7;
  return static_cast<std::int32_t>(remainder < 0 ? remainder + 7 : remainder) + 1;
}

/// The place of a day in its year: 1 for January 1 to 366.
constexpr std::int32_t dayOfYear(std::int64_t number) {
  return static_cast<std::int32_t>(number - dayNumber(civilDay(number).year, 1, 1)) + 1;
}

/// The week of a day by ISO 8601, 1 to 53. Weeks begin on Monday and belong to the year of their
/// Thursday, so that January 1 may lie in the last week of the year before.
constexpr std::int32_t weekOfYear(std::int64_t number) {
  const std::int32_t sinceMonday = (dayOfWeek(number) + 5) % 7;
  return (dayOfYear(number - sinceMonday + 3) - 1) / 7 + 1;
}

}  // namespace veldrin
