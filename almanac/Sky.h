#pragma once

#include <cstdint>

#include "solar/SunPosition.h"

namespace veldrin {

/// The Sun above a place, by the engine that the window uses. Days are Greenwich days, numbered as
/// in shell/host/Civil.h, of the years after 1582. An hour counts Universal Time from the midnight
/// at which its day begins.
class Sky {
 public:
  /// Degrees, north and east positive.
  Sky(double latitude, double longitude) : observer_(latitude, longitude, solar::Rads) {}

  /// The Modified Julian Date of the midnight at which a day begins.
  [[nodiscard]] static double midnightOf(std::int64_t day);

  /// The sine of the true altitude of the Sun's centre, `hour` after a midnight of `midnightOf`; an
  /// hour may lie outside its day.
  [[nodiscard]] double sineAltitude(double midnight, double hour) const;

  /// An upper bound of the change of that sine in an hour.
  [[nodiscard]] double mostInAnHour() const;

 private:
  solar::Observer observer_;
};

}  // namespace veldrin
