#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "almanac/Almanac.h"
#include "chart/Light.h"

namespace veldrin {

/// The Sun on a local day that the clock does not skip. Times are minutes of the day by the clock
/// of the place.
struct SunDay {
  std::int64_t day;  ///< as in shell/host/Civil.h
  std::vector<std::int32_t> sunrises;
  std::vector<std::int32_t> sunsets;
  std::int32_t minutesUp;
  bool isUpAllDay;

  [[nodiscard]] bool isDownAllDay() const { return minutesUp == 0; }
};

/// The days of a year, without those that the clock skips.
std::vector<SunDay> sunDays(const Light& light, const ClockYear& year);

/// A day with a number of minutes: a time on that day, or how long the Sun is up.
struct DayMinutes {
  std::int64_t day;
  std::int32_t minutes;
};

/// The extremes of a year. If several days share an extreme, the middle one of them is given. A
/// time is missing if the year has no such event.
struct YearExtremes {
  DayMinutes longest, shortest;
  std::optional<DayMinutes> earliestSunrise, latestSunrise, earliestSunset, latestSunset;
  std::int64_t daysUp;    ///< number of days on which the Sun is up all day
  std::int64_t daysDown;  ///< number of days on which the Sun is down all day
};

/// `days` must not be empty.
YearExtremes yearExtremes(const std::vector<SunDay>& days);

}  // namespace veldrin
