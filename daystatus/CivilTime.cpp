// The civil-time methods of the window. They connect its controls with `civiltime/`.

#include "civiltime/DaylightSavings.h"
#include "civiltime/TimeText.h"
#include "daystatus/Veldrin.h"
#include "shell/values/ParseDate.h"
#include "shell/window/BackgroundTask.h"

namespace veldrin {

void Veldrin::SetDaylightSavingsBounds(std::int32_t year) {
  const Ref<Date> date = newDate();
  date->Constructor();
  date->Year(year);
  civiltime::moveToFirstDay(*date, RuntimeBackgroundTask);
  DSTStart()->Text(date->ShortDate());
  civiltime::moveToEnd(*date, RuntimeBackgroundTask);
  DSTEnd()->Text(date->ShortDate());
}

bool Veldrin::IsDaylightSavingsTime(const Ref<Date>& d) {
  Ref<Date> first = newDate();
  first->Constructor();
  if (!ParseDate(DSTStart()->Text(), first)) return DownUnderFlag()->Value();
  Ref<Date> second = newDate();
  second->Constructor();
  if (!ParseDate(DSTEnd()->Text(), second)) return DownUnderFlag()->Value();
  return civiltime::isDaylightSavingsTime(d->TotalSeconds(), first->TotalSeconds(),
                                          second->TotalSeconds(), DownUnderFlag()->Value());
}

void Veldrin::DoDaylightSavings(const Ref<Date>& d, double& t) {
  if (!DaylightSavings()->Value()) return;
  if (!IsDaylightSavingsTime(d)) return;
  t = civiltime::addSavingHour(t);
}

String Veldrin::HHMMFormat(double x) {
  return civiltime::HHMMFormat(x);
}

String Veldrin::HHMMZZ(double x) {
  return civiltime::HHMMZZ(x);
}

String Veldrin::ShortDate(const Ref<Date>& d) {
  return d->ShortDate();
}

}  // namespace veldrin
