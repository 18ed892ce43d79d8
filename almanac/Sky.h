#pragma once

#include <cstdint>

#include "solar/SunPosition.h"

namespace veldrin {

/// The Sun's altitude at a place, computed by the same formulas as for the window. Days are days of
/// Universal Time from 1582-10-15 on, numbered as in shell/host/Civil.h. Hours count from the
/// midnight that begins the day.
class Sky {
 public:
  /// Takes degrees, north and east positive.
  Sky(double latitude, double longitude) : observer_(latitude, longitude, solar::Rads) {}

  /// The Modified Julian Date of the midnight that begins a day.
  [[nodiscard]] static double midnightOf(std::int64_t day);

  /// The sine of the altitude of the Sun's centre, without refraction, `hour` hours after
  /// `midnight`, a result of `midnightOf`. The hour may be outside [0:24].
  [[nodiscard]] double sineAltitude(double midnight, double hour) const;

  /// An upper bound of the change of `sineAltitude` in an hour.
  [[nodiscard]] double mostInAnHour() const;

 private:
  solar::Observer observer_;
};

}  // namespace veldrin
