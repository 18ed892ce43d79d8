#include "civiltime/DaylightSavings.h"

#include <utility>
#include <vector>

#include "shell/host/Civil.h"
#include "shell/values/Mathematics.h"

namespace veldrin::civiltime {

std::int32_t standardZone(double offset, bool isSavingNow) {
  return RuntimeCvtReal64ToSInt32(offset) - (isSavingNow ? 1 : 0);
}

SavingDays defaultDays(std::int32_t year) {
  const Ref<Date> date = New<Date>();
  const auto number = [&date] { return dayNumber(date->Year(), date->Month(), date->Day()); };
  const auto noYield = [] {};
  date->Year(year);
  moveToFirstDay(*date, noYield);
  const std::int64_t first = number();
  moveToEnd(*date, noYield);
  return {first, number(), false};
}

ClockRules clockRules(double zone, const std::optional<SavingDays>& saving, std::int32_t year) {
  const double standard = zone * MinutesOfHour;
  const auto isSaving = [&saving](std::int64_t day) {
    const auto real = [](std::int64_t value) { return static_cast<double>(value); };
    return saving && isDaylightSavingsTime(real(day), real(saving->first), real(saving->second),
                                           saving->downUnder);
  };
  const auto offsetOn = [&](std::int64_t day) {
    return standard + (isSaving(day) ? MinutesOfHour : 0.0);
  };
  const std::int64_t newYear = dayNumber(year, 1, 1);
  const std::int64_t nextYear = dayNumber(std::int64_t{year} + 1, 1, 1);
  std::vector<ClockChange> changes;
  double previous = offsetOn(newYear - 1);
  for (std::int64_t day = newYear; day < nextYear; ++day) {
    const double offset = offsetOn(day);
    if (offset == previous) continue;
    // A clock set back at midnight would show the previous day again, so change it an hour later.
    const double midnight = static_cast<double>(day * MinutesOfDay) - previous;
    changes.push_back({offset > previous ? midnight : midnight + (previous - offset), offset});
    previous = offset;
  }
  return ClockRules(offsetOn(newYear - 1), std::move(changes));
}

}  // namespace veldrin::civiltime
