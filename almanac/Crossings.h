#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "almanac/Sky.h"

namespace veldrin {

/// A moment at which the Sun's centre crosses an altitude.
struct Crossing {
  std::int64_t day;      ///< of Universal Time, numbered as in shell/host/Civil.h
  double hour;           ///< [0:24]
  std::size_t altitude;  ///< index into the `sines` of `crossings`
  bool rises;

  /// The moment in whole minutes since 1970-01-01 00:00 UTC, rounded as the window rounds.
  [[nodiscard]] std::int64_t minute() const;
};

/// Finds every crossing of the altitudes from the first day to the last, both included, in order of
/// time. The altitudes are given by their sines. At each altitude, rises and sets alternate.
///
/// The search resembles `solar::searchDay`, but never ends before the end of a day, and skips hours
/// that cannot have a crossing. A parabola spans one hour instead of two, which reduces the error
/// of the interpolation from about ten seconds to one. `yield()` is called once for each day.
std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines, const std::function<void()>& yield);

}  // namespace veldrin
