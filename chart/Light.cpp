#include "chart/Light.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "almanac/Crossings.h"
#include "almanac/Sky.h"
#include "shell/values/Mathematics.h"
#include "solar/RiseSetSearch.h"

namespace veldrin {
namespace {

constexpr std::size_t AltitudeCount = BandCount - 1;

double sineOf(Twilight twilight) {
  return Sin((-solar::Rads) * static_cast<double>(twilight));
}

/// The sines of the altitudes that separate the bands, highest altitude first.
std::array<double, AltitudeCount> sinesOfAltitudes() {
  return {solar::sineAtHorizon(solar::Rads), sineOf(Twilight::Civil), sineOf(Twilight::Nautical),
          sineOf(Twilight::Astronomical)};
}

Band bandOf(const std::array<bool, AltitudeCount>& isAbove) {
  return static_cast<Band>(std::ranges::count(isAbove, true));
}

}  // namespace

Light::Light(const Place& place, std::int64_t firstDay, std::int64_t lastDay,
             const std::function<void()>& yield) {
  const Sky sky(place.latitude, place.longitude);
  const auto sines = sinesOfAltitudes();
  const double sineAtFirst = sky.sineAltitude(Sky::midnightOf(firstDay), 0.0);
  std::array<bool, AltitudeCount> isAbove{};
  std::ranges::transform(sines, isAbove.begin(), [&](double sine) { return sineAtFirst > sine; });
  atFirst_ = bandOf(isAbove);
  for (const Crossing& crossing : crossings(sky, firstDay, lastDay, sines, yield)) {
    isAbove[crossing.altitude] = crossing.rises;
    changes_.push_back({crossing.minute(), bandOf(isAbove)});
  }
}

std::vector<Light::Change>::const_iterator Light::firstAfter(double minute) const {
  return std::ranges::upper_bound(changes_, minute, {}, [](const Change& change) {
    return static_cast<double>(change.minute);
  });
}

Band Light::bandAt(double minute) const {
  const auto next = firstAfter(minute);
  return next == changes_.begin() ? atFirst_ : std::prev(next)->band;
}

double Light::minutesOfSun(const DaySpan& span) const {
  double sum = 0.0;
  double from = span.begin;
  Band band = bandAt(from);
  const auto end = firstAfter(span.end);
  for (auto change = firstAfter(from); change != end; ++change) {
    const auto to = static_cast<double>(change->minute);
    if (band == Band::Day) sum += to - from;
    from = to;
    band = change->band;
  }
  return band == Band::Day ? sum + (span.end - from) : sum;
}

}  // namespace veldrin
