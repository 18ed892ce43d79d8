#pragma once

#include <cstdint>
#include <optional>

#include "civiltime/ClockRules.h"
#include "shell/values/Date.h"

namespace veldrin::civiltime {

// The window's model of daylight saving is a period between two dates. One rule gives the default
// dates of every year. Under `downUnder`, daylight saving is outside the period.

/// Moves a date to the default first day of daylight saving in its year: the second Sunday of
/// March. The time of day stays. `yield()` is called once in each pass of the search.
template <class Yield>
void moveToFirstDay(::veldrin::Date& date, const Yield& yield) {
  constexpr std::int32_t Sunday = 1;
  date.Month(3);
  bool firstSundayMet = false;
  for (std::int32_t day = 1; day <= 31; ++day) {
    date.Day(day);
    if (date.DayOfWeek() == Sunday) {
      if (firstSundayMet) break;
      firstSundayMet = true;
    }
    yield();
  }
}

/// Moves a date to the default first day of standard time in its year: the first Sunday of
/// November. The time of day stays. `yield()` is called once in each pass of the search.
template <class Yield>
void moveToEnd(::veldrin::Date& date, const Yield& yield) {
  constexpr std::int32_t Sunday = 1;
  date.Month(11);
  for (std::int32_t day = 1; day <= 30; ++day) {
    date.Day(day);
    if (date.DayOfWeek() == Sunday) break;
    yield();
  }
}

/// Whether a moment has daylight saving: inside the period, which includes its first bound, or
/// outside it under `downUnder`. All three are in one unit, such as the seconds of
/// `Date::TotalSeconds`. The bounds may be in either order.
inline bool isDaylightSavingsTime(double moment, double first, double second, bool downUnder) {
  const double begin = second < first ? second : first;
  const double end = second < first ? first : second;
  const bool inside = !(moment < begin) && moment < end;
  return inside != downUnder;
}

/// Adds the hour of daylight saving to a time of day in hours, and keeps it below 24.
inline double addSavingHour(double t) {
  t = t + 1.0;
  if (t < 0.0) t = t + 24.0;
  if (!(t < 24.0)) t = t - 24.0;
  return t;
}

/// The standard zone, in whole hours, of a host whose UTC offset is now `offset` hours.
std::int32_t standardZone(double offset, bool isSavingNow);

/// A daylight-saving period, as day numbers.
struct SavingDays {
  std::int64_t first;   ///< the first day inside
  std::int64_t second;  ///< the first day after it
  bool downUnder;
};

/// The default period of a year, not down under. Raises what `Date` raises.
SavingDays defaultDays(std::int32_t year);

/// The clock of a standard zone, in hours east of Greenwich, in one year; `saving` is empty for a
/// year without daylight saving. The clock changes at the first midnight of the new time.
ClockRules clockRules(double zone, const std::optional<SavingDays>& saving, std::int32_t year);

}  // namespace veldrin::civiltime
