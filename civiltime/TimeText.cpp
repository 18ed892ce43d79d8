#include "civiltime/TimeText.h"

#include "shell/values/Mathematics.h"
#include "shell/values/Text.h"

namespace veldrin::civiltime {
namespace {

/// The whole hours and minutes that a clock shows. The minutes are rounded again, because a
/// double cannot hold most sixtieths exactly.
struct ClockReading {
  double hours;
  double minutes;

  explicit ClockReading(double x) {
    const double wholeMinutes = Floor((x * 60.0) + 0.5);
    const double roundedTime = wholeMinutes / 60.0;
    hours = Floor(roundedTime);
    minutes = Floor(((roundedTime - hours) * 60.0) + 0.5);
  }
};

}  // namespace

String HHMMFormat(double x) {
  if (x < 0.0) return "N/A"_s;
  const ClockReading reading(x);
  return Format(reading.hours, "00"_s) + ":"_s + Format(reading.minutes, "00"_s);
}

String HHMMZZ(double x) {
  if (x < 0.0) return "000000"_s;
  const ClockReading reading(x);
  return Format(reading.hours, "00"_s) + Format(reading.minutes, "00"_s) + "00"_s;
}

}  // namespace veldrin::civiltime
