#include "daystatus/Veldrin.h"
#include "shell/BackgroundTask.h"
#include "shell/ParseDate.h"

namespace veldrin {
namespace {

constexpr std::int32_t Sunday = 1;

}  // namespace

void Veldrin::SetDaylightSavingsBounds(std::int32_t year) {
  const Ref<Date> date = newDate();
  date->Constructor();
  date->Year(year);
  date->Month(3);
  bool firstSundayMet = false;
  for (std::int32_t day = 1; day <= 31; ++day) {
    date->Day(day);
    if (date->DayOfWeek() == Sunday) {
      if (firstSundayMet) break;
      firstSundayMet = true;
    }
    RuntimeBackgroundTask();
  }
  DSTStart()->Text(date->ShortDate());
  date->Month(11);
  for (std::int32_t day = 1; day <= 30; ++day) {
    date->Day(day);
    if (date->DayOfWeek() == Sunday) break;
    RuntimeBackgroundTask();
  }
  DSTEnd()->Text(date->ShortDate());
}

bool Veldrin::IsDaylightSavingsTime(const Ref<Date>& d) {
  Ref<Date> first = newDate();
  first->Constructor();
  if (!ParseDate(DSTStart()->Text(), first)) return DownUnderFlag()->Value();
  Ref<Date> second = newDate();
  second->Constructor();
  if (!ParseDate(DSTEnd()->Text(), second)) return DownUnderFlag()->Value();
  if (second->TotalSeconds() < first->TotalSeconds()) {
    const double later = first->TotalSeconds();
    first->TotalSeconds(second->TotalSeconds());
    second->TotalSeconds(later);
  }
  const bool inside =
      !(d->TotalSeconds() < first->TotalSeconds()) && d->TotalSeconds() < second->TotalSeconds();
  return inside != DownUnderFlag()->Value();
}

void Veldrin::DoDaylightSavings(const Ref<Date>& d, double& t) {
  if (!DaylightSavings()->Value()) return;
  if (!IsDaylightSavingsTime(d)) return;
  t = t + 1.0;
  if (t < 0.0) t = t + 24.0;
  if (!(t < 24.0)) t = t - 24.0;
}

}  // namespace veldrin
