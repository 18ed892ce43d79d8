#include "almanac/Crossings.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "shell/BackgroundTask.h"
#include "shell/Civil.h"
#include "shell/Mathematics.h"
#include "shell/Text.h"

namespace veldrin {
namespace {

constexpr double HoursOfDay = 24.0;

/// Calls `visit(z, rises)` for each root from -1 to +1 of the curve through three values at -1, 0
/// and +1, the earlier one first.
template <class Visit>
void eachRoot(Veldrin& engine, double ym, double y0, double yp, const Visit& visit) {
  const double a = (0.5 * (ym + yp)) - y0;
  if (a == 0.0) {
    // The three lie in one line, by which the parabola would divide by zero.
    const double slope = 0.5 * (yp - ym);
    const double z = -y0 / slope;
    if (Abs(z) <= 1.0) visit(z, slope > 0.0);
    return;
  }
  double xe = 0.0;
  double ye = 0.0;
  double z1 = 0.0;
  double z2 = 0.0;
  std::int32_t nz = 0;
  engine.QuadParabola(ym, y0, yp, xe, ye, z1, z2, nz);
  // A parabola that opens upward rises behind its vertex, one that opens downward ahead of it.
  if (nz > 0) visit(z1, (z1 > xe) == (a > 0.0));
  if (nz == 2) visit(z2, a > 0.0);
}

/// A search in progress, which walks on through the hours.
class Search {
 public:
  Search(const Sky& sky, std::span<const double> sines)
      : sky_(sky), sines_(sines), lastRose_(sines.size()) {}

  /// Looks at the hour that begins there, and gives the hours to go on by.
  double pass(std::int64_t day, double hour) {
    // Hour 24 of a day and hour 0 of the next are the same number to the engine: the value is kept.
    const double start = knowsNext_ ? next_ : sky_.sineAltitude(day, hour);
    knowsNext_ = false;
    const double idle = idleHours(start);
    if (idle >= 1.0) return idle;

    const double middle = sky_.sineAltitude(day, hour + 0.5);
    next_ = sky_.sineAltitude(day, hour + 1.0);
    knowsNext_ = true;
    for (std::size_t altitude = 0; altitude < sines_.size(); ++altitude) {
      const double sine = sines_[altitude];
      const auto keep = [&](double z, bool rises) {
        // A root at the end of two parabolas may be met in both.
        if (lastRose_[altitude] == rises) return;
        lastRose_[altitude] = rises;
        found.push_back({day, hour + 0.5 + 0.5 * z, altitude, rises});
      };
      eachRoot(*sky_.engine, start - sine, middle - sine, next_ - sine, keep);
    }
    return 1.0;
  }

  std::vector<Crossing> found;

 private:
  /// The number of whole hours in which the sine of the altitude, which is `now`, surely reaches
  /// none of `sines_`. Most hours have no crossing; to skip them spares half of the altitudes.
  [[nodiscard]] double idleHours(double now) const {
    constexpr double Overshoot = 0.005;  // a parabola leaves the range of its values by less
    double least = 2.0;
    for (const double sine : sines_) least = std::min(least, Abs(now - sine));
    return Floor((least - Overshoot) / mostInAnHour_);
  }

  const Sky& sky_;
  std::span<const double> sines_;
  double mostInAnHour_ = sky_.mostInAnHour();
  std::vector<std::optional<bool>> lastRose_;
  double next_ = 0.0;  // where the pass before ended
  bool knowsNext_ = false;
};

}  // namespace

Sky::Sky(const Ref<Veldrin>& window)
    : engine(window),
      latitude(Val(window->Latitude()->Text())),
      longitude(Val(window->Longitude()->Text())),
      cphi_(Cos(window->Rads * latitude)),
      sphi_(Sin(window->Rads * latitude)) {}

double Sky::sineAltitude(std::int64_t day, double hour) const {
  // A call may change `mjd0`, and before 1858 every call does, so it is set each time.
  const CivilDay civil = civilDay(day);
  engine->mjd0 = engine->iPart(engine->ModifiedJulianDate(static_cast<std::int32_t>(civil.year),
                                                          civil.month, civil.day, 0.0));
  return engine->SineAltitude(hour, -longitude, cphi_, sphi_);
}

double Sky::mostInAnHour() const {
  constexpr double MostByTurning = 0.263;       // of the Earth: a turn in a sidereal day
  constexpr double MostByDeclination = 0.0003;  // 24 minutes of arc in a day
  return MostByTurning * cphi_ + MostByDeclination;
}

std::int64_t Crossing::minute() const {
  return day * 24 * 60 + static_cast<std::int64_t>(Floor((hour * 60.0) + 0.5));
}

std::vector<Crossing> crossings(const Sky& sky, std::int64_t firstDay, std::int64_t lastDay,
                                std::span<const double> sines) {
  Search search(sky, sines);
  for (std::int64_t day = firstDay; day <= lastDay; ++day) {
    double hour = 0.0;
    while (hour < HoursOfDay) hour += search.pass(day, hour);
    RuntimeBackgroundTask();
  }
  std::ranges::stable_sort(search.found, {}, &Crossing::minute);
  return std::move(search.found);
}

}  // namespace veldrin
