#include "chart/DayColumn.h"

#include <cmath>

#include "shell/host/Civil.h"

namespace veldrin {
namespace {

void add(DayColumn& column, std::int32_t minute, Band band) {
  if (column.empty() || column.back().band != band) column.push_back({minute, band});
}

/// The column of a day on which the clock does not change. `begin` is the first minute of the day.
DayColumn evenColumn(const Light& light, double begin) {
  DayColumn column{{0, light.bandAt(begin)}};
  for (auto change = light.firstAfter(begin); change != light.changes().end(); ++change) {
    const double minute = std::ceil(static_cast<double>(change->minute) - begin);
    if (minute >= MinutesOfDay) break;
    add(column, static_cast<std::int32_t>(minute), light.bandAt(begin + minute));
  }
  return column;
}

}  // namespace

DayColumn dayColumn(const Light& light, const ClockRules& clock, std::int64_t day) {
  const double begin = clock.momentOf(day, 0.0);
  if (clock.momentOf(day, MinutesOfDay) - begin == MinutesOfDay) return evenColumn(light, begin);
  DayColumn column;
  for (std::int32_t minute = 0; minute < MinutesOfDay; ++minute) {
    add(column, minute, light.bandAt(clock.momentOf(day, minute)));
  }
  return column;
}

}  // namespace veldrin
