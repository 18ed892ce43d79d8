#include "daystatus/Veldrin.h"

#include "shell/values/Mathematics.h"
#include "shell/values/Text.h"

namespace veldrin {

Ref<Veldrin> implicit::Veldrin() {
  Ref<Object> window = _GetImplicitWindow("Veldrin.Veldrin"_s);
  if (!window) {
    const Ref<veldrin::Veldrin> made = New<veldrin::Veldrin>();
    made->Constructor();
    window = made;
  }
  return CheckCast<veldrin::Veldrin>(window);
}

void Veldrin::Event_Open() {
  Pi = 3.141592653589793;
  TwoPi = 2.0 * Pi;
  Rads = Pi / 180.0;
  Degs = 180.0 / Pi;
  const Ref<Date> today = newDate();
  today->Constructor();
  SetDaylightSavingsBounds(today->Year());
  std::int32_t zone = RuntimeCvtReal64ToSInt32(today->GMTOffset());
  // The host's offset includes daylight saving; `TimeZone` shows standard time.
  if (IsDaylightSavingsTime(today)) zone -= 1;
  TimeZone()->Text(Str(zone));
  statusDate = newDate();
  statusDate->Constructor();
  UpdateStatus();
}

}  // namespace veldrin
