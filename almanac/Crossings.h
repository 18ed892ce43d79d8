#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "daystatus/Veldrin.h"

namespace veldrin {

// Days here are Greenwich days, numbered as in shell/Civil.h: 1970-01-01 is day 0. An hour counts
// Universal Time from the midnight that begins its day. The years are those after 1582.

/// The Sun above a place, as the window's engine has it.
class Sky {
 public:
  /// The place that stands in the window's fields now; they are not read again.
  explicit Sky(const Ref<Veldrin>& window);

  /// The sine of the true altitude of the Sun's centre; an hour may lie outside of its day.
  [[nodiscard]] double sineAltitude(std::int64_t day, double hour) const;

  /// A bound of the change of that sine in an hour.
  [[nodiscard]] double mostInAnHour() const;

  const Ref<Veldrin> engine;  ///< the window, whose methods reckon
  const double latitude;      ///< degrees, north positive
  const double longitude;     ///< degrees, east positive

 private:
  double cphi_;
  double sphi_;
};

/// The moment at which the Sun's centre passes an altitude.
struct Crossing {
  std::int64_t day;
  double hour;           ///< [0:24]
  std::size_t altitude;  ///< which of the altitudes that were searched for
  bool rises;

  /// The moment in whole minutes since 1970-01-01 00:00, rounded as the panel rounds.
  [[nodiscard]] std::int64_t minute() const;
};

/// Every passing of the altitudes, given by their sines, from the first day to the last, both
/// included, in order of time. Each altitude is passed upward and downward in turn.
///
/// The method is that of `DoVeldrin` with parabolas of an hour in place of two, which brings the
/// error of the interpolation from some ten seconds to one, and with no early end.
std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines);

}  // namespace veldrin
