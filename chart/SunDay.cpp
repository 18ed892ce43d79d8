#include "chart/SunDay.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "shell/host/Civil.h"

namespace veldrin {
namespace {

/// The days that the clock does not skip, still without their sunrises and sunsets.
std::vector<SunDay> daysWithLengths(const Light& light, const ClockYear& year) {
  std::vector<SunDay> days;
  const std::int64_t last = dayNumber(year.year, 12, 31);
  for (std::int64_t day = dayNumber(year.year, 1, 1); day <= last; ++day) {
    const std::optional<DaySpan> span = year.clock.spanOf(day);
    if (!span) continue;
    const double up = light.minutesOfSun(*span);
    days.push_back(
        {day, {}, {}, static_cast<std::int32_t>(std::lround(up)), up == span->end - span->begin});
  }
  return days;
}

/// The minute of the day that the clock shows at a moment of that day.
std::int32_t shownMinute(const ClockRules& clock, std::int64_t day, double moment) {
  const double shown = moment + clock.offsetAt(moment) - static_cast<double>(day * MinutesOfDay);
  return static_cast<std::int32_t>(std::floor(shown));
}

using Times = std::vector<DayMinutes>;

Times timesOf(const std::vector<SunDay>& days, std::vector<std::int32_t> SunDay::*kind) {
  Times times;
  for (const SunDay& day : days) {
    for (const std::int32_t minute : day.*kind) times.push_back({day.day, minute});
  }
  return times;
}

Times lengthsOf(const std::vector<SunDay>& days) {
  Times lengths;
  lengths.reserve(days.size());
  for (const SunDay& day : days) lengths.push_back({day.day, day.minutesUp});
  return lengths;
}

/// The time that is first in `order`; if several days have that time, the middle one of them.
template <class Order>
std::optional<DayMinutes> middleOfFirst(Times times, const Order& order) {
  if (times.empty()) return std::nullopt;
  const std::int32_t first = std::ranges::min(times, order, &DayMinutes::minutes).minutes;
  std::erase_if(times, [&](const DayMinutes& other) { return other.minutes != first; });
  return times[times.size() / 2];
}

std::optional<DayMinutes> least(Times times) {
  return middleOfFirst(std::move(times), std::less());
}

std::optional<DayMinutes> most(Times times) {
  return middleOfFirst(std::move(times), std::greater());
}

}  // namespace

std::vector<SunDay> sunDays(const Light& light, const ClockYear& year) {
  std::vector<SunDay> days = daysWithLengths(light, year);
  bool isUp = light.atFirst() == Band::Day;
  for (const Light::Change& change : light.changes()) {
    const bool wasUp = isUp;
    isUp = change.band == Band::Day;
    if (isUp == wasUp) continue;
    const auto moment = static_cast<double>(change.minute);
    const std::int64_t number = year.clock.dayAt(moment);
    const auto day = std::ranges::lower_bound(days, number, {}, &SunDay::day);
    if (day == days.end() || day->day != number) continue;
    (isUp ? day->sunrises : day->sunsets).push_back(shownMinute(year.clock, number, moment));
  }
  return days;
}

YearExtremes yearExtremes(const std::vector<SunDay>& days) {
  const Times sunrises = timesOf(days, &SunDay::sunrises);
  const Times sunsets = timesOf(days, &SunDay::sunsets);
  return {most(lengthsOf(days)).value(),
          least(lengthsOf(days)).value(),
          least(sunrises),
          most(sunrises),
          least(sunsets),
          most(sunsets),
          std::ranges::count_if(days, &SunDay::isUpAllDay),
          std::ranges::count_if(days, &SunDay::isDownAllDay)};
}

}  // namespace veldrin
