#include "daystatus/Veldrin.h"
#include "shell/host/Civil.h"
#include "shell/values/Text.h"

namespace veldrin {

void Veldrin::UpdateStatus() {
  // "Open" of `WhichYear` comes before "Open" of the window, which sets `statusDate`.
  if (!statusDate || statusDate->Operator_Compare(nullptr) == 0) {
    statusDate = newDate();
    statusDate->Constructor();
  }
  const Ref<Date> day = statusDate;
  const double latitude = Val(Latitude()->Text());
  const double longitude = Val(Longitude()->Text());
  const double zone = Val(TimeZone()->Text());
  double riseTime = 0.0;
  double setTime = 0.0;
  DoVeldrin(latitude, longitude, day, zone, riseTime, setTime);
  Status()->Text(ShortDate(day) + Chr(13) + "Sunrise = "_s + HHMMFormat(riseTime) + Chr(13) +
                 "Sunset = "_s + HHMMFormat(setTime));
}

void Veldrin::stepDay(double seconds) {
  statusDate->TotalSeconds(statusDate->TotalSeconds() + seconds);
  UpdateStatus();
}

void Veldrin::BackOneDay_Action() {
  stepDay(-SecondsOfDay);
}

void Veldrin::ForwardOneDay_Action() {
  stepDay(SecondsOfDay);
}

}  // namespace veldrin
