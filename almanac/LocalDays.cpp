#include "almanac/LocalDays.h"

#include "shell/BackgroundTask.h"
#include "shell/Civil.h"
#include "shell/Mathematics.h"
#include "shell/Text.h"

namespace veldrin {
namespace {

constexpr double MinutesOfHour = 60.0;

}  // namespace

std::vector<LocalDay> localDays(const Ref<Veldrin>& window) {
  const std::int32_t year = RuntimeCvtReal64ToSInt32(Val(window->WhichYear()->Text()));
  const double zone = Val(window->TimeZone()->Text()) * MinutesOfHour;
  const bool saves = window->DaylightSavings()->Value();
  Ref<Date> date = New<Date>();
  date->Year(year - 1);
  date->Month(12);
  date->Day(31);
  const auto endOf = [&](std::int64_t day) {
    const bool saved = saves && window->IsDaylightSavingsTime(date);
    return static_cast<double>((day + 1) * MinutesOfDay) - zone - (saved ? MinutesOfHour : 0.0);
  };

  std::vector<LocalDay> days;
  std::int64_t day = dayNumber(year, 1, 1);
  const std::int64_t after = dayNumber(year + 1, 1, 1);
  double begin = endOf(day - 1);
  for (; day < after; ++day) {
    date->TotalSeconds(date->TotalSeconds() + SecondsOfDay);
    const double end = endOf(day);
    days.push_back({day, begin, end});
    begin = end;
    RuntimeBackgroundTask();
  }
  return days;
}

}  // namespace veldrin
