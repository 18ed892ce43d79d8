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
  std::int64_t day;      ///< a day of `Sky`
  double hour;           ///< [0:24]
  std::size_t altitude;  ///< the altitude's index in the search
  bool rises;

  /// The moment in whole minutes since 1970-01-01 00:00, rounded as the window rounds.
  [[nodiscard]] std::int64_t minute() const;
};

/// Finds every crossing of the altitudes from the first day to the last, both included, in order of
/// time. The altitudes are given by their sines. At each of them the Sun rises and sets in turn.
///
/// The search works like `solar::searchDay`, with two differences. A parabola spans one hour
/// instead of two, which reduces the error of the interpolation from about ten seconds to one. The
/// search does not end early. `yield()` is called once for each day.
std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines, const std::function<void()>& yield);

}  // namespace veldrin
