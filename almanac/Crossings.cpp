#include "almanac/Crossings.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "shell/host/Civil.h"
#include "shell/values/Mathematics.h"
#include "solar/RiseSetSearch.h"

namespace veldrin {
namespace {

constexpr double HoursOfDay = 24.0;

/// Calls `visit(z, rises)` for each root z, in ascending order, of the parabola through the values
/// at -1, 0 and +1. Only roots from -1 to +1 count.
template <class Visit>
void eachRoot(double ym, double y0, double yp, const Visit& visit) {
  const double a = (0.5 * (ym + yp)) - y0;
  if (a == 0.0) {
    // The values lie on a line; `QuadParabola` would divide by zero.
    const double slope = 0.5 * (yp - ym);
    const double z = -y0 / slope;
    if (Abs(z) <= 1.0) visit(z, slope > 0.0);
    return;
  }
  solar::Parabola curve;
  solar::QuadParabola(ym, y0, yp, curve);
  // The parabola rises after its vertex if it opens upward (a > 0), else before its vertex.
  if (curve.nz > 0) visit(curve.z1, (curve.z1 > curve.xe) == (a > 0.0));
  if (curve.nz == 2) visit(curve.z2, a > 0.0);
}

/// Collects the crossings of the days that it searches.
class Search {
 public:
  Search(const Sky& sky, std::span<const double> sines)
      : sky_(sky), sines_(sines), lastRose_(sines.size()) {}

  void searchDay(std::int64_t day) {
    midnight_ = Sky::midnightOf(day);
    double hour = 0.0;
    while (hour < HoursOfDay) hour += searchHour(day, hour);
  }

  std::vector<Crossing> found;

 private:
  /// Searches the hour from `hour`, if it can have a crossing. Returns how many hours to advance.
  double searchHour(std::int64_t day, double hour) {
    // Hour 24 of a day is hour 0 of the next, so `next_` stays valid across midnight.
    const double start = hasNext_ ? next_ : sky_.sineAltitude(midnight_, hour);
    hasNext_ = false;
    const double idle = idleHours(start);
    if (idle >= 1.0) return idle;

    const double middle = sky_.sineAltitude(midnight_, hour + 0.5);
    next_ = sky_.sineAltitude(midnight_, hour + 1.0);
    hasNext_ = true;
    const auto before = std::ssize(found);
    for (std::size_t altitude = 0; altitude < sines_.size(); ++altitude) {
      const double sine = sines_[altitude];
      const auto keep = [&](double z, bool rises) {
        // If two parabolas meet at a root, both may have this root.
        if (lastRose_[altitude] == rises) return;
        lastRose_[altitude] = rises;
        found.push_back({day, hour + 0.5 + 0.5 * z, altitude, rises});
      };
      eachRoot(start - sine, middle - sine, next_ - sine, keep);
    }
    // The loop found the crossings altitude by altitude; put them in order of time.
    std::ranges::sort(found.begin() + before, found.end(), {}, &Crossing::hour);
    return 1.0;
  }

  /// The number of whole hours in which the sine of the Sun's altitude, now `current`, cannot reach
  /// any of `sines_`; may be negative. Skipping hours without a crossing saves half of the work.
  [[nodiscard]] double idleHours(double current) const {
    constexpr double Overshoot = 0.005;  // a parabola exceeds its three values by less than this
    double least = 2.0;
    for (const double sine : sines_) least = std::min(least, Abs(current - sine));
    return Floor((least - Overshoot) / mostInAnHour_);
  }

  const Sky& sky_;
  std::span<const double> sines_;
  double mostInAnHour_ = sky_.mostInAnHour();
  std::vector<std::optional<bool>> lastRose_;
  double midnight_ = 0.0;
  double next_ = 0.0;  // the sine at the end of the last searched hour
  bool hasNext_ = false;
};

}  // namespace

std::int64_t Crossing::minute() const {
  return day * MinutesOfDay + static_cast<std::int64_t>(Floor((hour * 60.0) + 0.5));
}

std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines, const std::function<void()>& yield) {
  Search search(sky, sines);
  for (std::int64_t day = firstDay; day <= lastDay; ++day) {
    search.searchDay(day);
    yield();
  }
  return std::move(search.found);
}

}  // namespace veldrin
