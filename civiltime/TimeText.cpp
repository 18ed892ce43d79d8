#include "daystatus/Veldrin.h"
#include "shell/Mathematics.h"
#include "shell/Text.h"

namespace veldrin {
namespace {

/// A time of day as the whole hours and minutes that are shown. The second rounding makes the
/// minutes exact, which a sixtieth in binary is not.
struct ClockReading {
  double hours;
  double minutes;

  explicit ClockReading(double x) {
    const double wholeMinutes = Floor((x * 60.0) + 0.5);
    const double roundedHours = wholeMinutes / 60.0;
    hours = Floor(roundedHours);
    minutes = Floor(((roundedHours - hours) * 60.0) + 0.5);
  }
};

}  // namespace

String Veldrin::HHMMFormat(double x) {
  if (x < 0.0) return "N/A"_s;
  const ClockReading reading(x);
  return Format(reading.hours, "00"_s) + ":"_s + Format(reading.minutes, "00"_s);
}

String Veldrin::HHMMZZ(double x) {
  if (x < 0.0) return "000000"_s;
  const ClockReading reading(x);
  return Format(reading.hours, "00"_s) + Format(reading.minutes, "00"_s) + "00"_s;
}

String Veldrin::ShortDate(const Ref<Date>& d) {
  return d->ShortDate();
}

}  // namespace veldrin
