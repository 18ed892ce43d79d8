#pragma once

#include <cstdint>
#include <optional>

#include "civiltime/ClockRules.h"
#include "shell/values/Date.h"

namespace veldrin::civiltime {

// The window's model of daylight saving is a period between two dates. One rule gives the default
// dates of every year. Under `downUnder`, daylight saving is outside the period.

/// Moves a date to the default first day of daylight saving in its year: the second Sunday of
/// March. The time of day stays. Calls `yield()` once for each earlier day of the month.
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
/// November. The time of day stays. Calls `yield()` once for each earlier day of the month.
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

/// Whether daylight saving applies at a moment: inside the period or, if `downUnder`, outside it.
/// The period includes its earlier bound. `moment`, `first` and `second` are in one unit, such as
/// the seconds of `Date::TotalSeconds`. The bounds may be in either order.
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

/// The standard time, in whole hours east of UTC, of a host whose offset is now `offset` hours.
std::int32_t standardZone(double offset, bool isSavingNow);

/// The period of `isDaylightSavingsTime`, as day numbers.
struct SavingDays {
  std::int64_t first;   ///< its first day, if the bounds are in order
  std::int64_t second;  ///< the day after its last
  bool downUnder;
};

/// The default period of a year; `downUnder` is false. Raises what `Date` raises.
SavingDays defaultDays(std::int32_t year);

/// The clock in one year. `zone` is standard time in hours east of Greenwich; `saving` is empty
/// without daylight saving. The clock changes at midnight of standard time.
ClockRules clockRules(double zone, const std::optional<SavingDays>& saving, std::int32_t year);

}  // namespace veldrin::civiltime
