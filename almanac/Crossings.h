#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "almanac/Sky.h"

namespace veldrin {

/// The moment at which the Sun's centre crosses an altitude.
struct Crossing {
  std::int64_t day;      ///< as `Sky` numbers it
  double hour;           ///< [0:24]
  std::size_t altitude;  ///< index of the altitude that was searched for
  bool rises;

  /// The moment in whole minutes since 1970-01-01 00:00, rounded as the window rounds.
  [[nodiscard]] std::int64_t minute() const;
};

/// Every crossing of the altitudes, given by their sines, from the first day to the last, both
/// included, in order of time. At each altitude the Sun rises and sets in turn.
///
/// The method is that of `solar::searchDay` with two changes. A parabola spans one hour in place of
/// two, which brings the error of the interpolation from some ten seconds to one. The search does
/// not end early. `yield()` is called once for each day.
std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines, const std::function<void()>& yield);

}  // namespace veldrin
