#include "almanac/Almanac.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "almanac/AlmanacDocument.h"
#include "almanac/Crossings.h"
#include "shell/host/Civil.h"
#include "shell/values/Mathematics.h"
#include "solar/RiseSetSearch.h"

namespace veldrin {
namespace {

constexpr std::size_t TwilightStep = 6;  // degrees from one twilight to the next

/// The events at an altitude: row 0 for sunrise and sunset, row n for the twilight of 6 * n
/// degrees.
constexpr struct {
  EventKind rising, setting;
} KindPairs[] = {
    {{"sunrise", "Sunrise"}, {"sunset", "Sunset"}},
    {{"civil-dawn", "Civil dawn"}, {"civil-dusk", "Civil dusk"}},
    {{"nautical-dawn", "Nautical dawn"}, {"nautical-dusk", "Nautical dusk"}},
    {{"astronomical-dawn", "Astronomical dawn"}, {"astronomical-dusk", "Astronomical dusk"}},
};

constexpr EventKind UpAllDay{"no-sunset", "Sun up all day"};
constexpr EventKind DownAllDay{"no-sunrise", "Sun down all day"};

/// The altitudes to search for: that of sunrise and sunset first, then those of the twilights.
struct Altitudes {
  std::vector<double> sines;
  std::vector<std::size_t> rows;  ///< for each altitude, the row of `KindPairs`

  explicit Altitudes(const std::set<Twilight>& twilights)
      : sines{solar::sineAtHorizon(solar::Rads)}, rows{0} {
    for (const Twilight twilight : twilights) {
      const auto degrees = static_cast<std::size_t>(twilight);
      sines.push_back(Sin((-solar::Rads) * static_cast<double>(degrees)));
      rows.push_back(degrees / TwilightStep);
    }
  }

  [[nodiscard]] const EventKind& kindOf(const Crossing& crossing) const {
    const auto& pair = KindPairs[rows[crossing.altitude]];
    return crossing.rises ? pair.rising : pair.setting;
  }
};

bool isUpAtMiddle(const Sky& sky, const DaySpan& span, double sine) {
  const double middle = (span.begin + span.end) / 2.0;
  const double day = Floor(middle / MinutesOfDay);
  const double hour = (middle - day * MinutesOfDay) / MinutesOfHour;
  return sky.sineAltitude(Sky::midnightOf(static_cast<std::int64_t>(day)), hour) > sine;
}

/// Adds the events of one local day, which are in order of time.
void addEvents(AlmanacDocument& document, const Altitudes& altitudes, std::int64_t day,
               std::span<const Crossing> events) {
  for (auto event = events.begin(); event != events.end(); ++event) {
    const auto sameKind = [&](const Crossing& other) {
      return other.altitude == event->altitude && other.rises == event->rises;
    };
    const std::int64_t ordinal = std::count_if(events.begin(), event, sameKind) + 1;
    document.addMoment(altitudes.kindOf(*event), day, ordinal, event->minute(),
                       event->altitude == 0);
  }
}

/// Groups the crossings by local day.
std::map<std::int64_t, std::vector<Crossing>> byLocalDay(const std::vector<Crossing>& found,
                                                         const ClockRules& clock) {
  std::map<std::int64_t, std::vector<Crossing>> days;
  for (const Crossing& crossing : found) {
    days[clock.dayAt(static_cast<double>(crossing.minute()))].push_back(crossing);
  }
  return days;
}

void addYear(AlmanacDocument& document, const Sky& sky, const Altitudes& altitudes,
             const ClockYear& year, const std::function<void()>& yield) {
  const std::int64_t first = dayNumber(year.year, 1, 1);
  const std::int64_t last = dayNumber(year.year, 12, 31);
  // Two days more at each end: a zone of 24 hours with daylight saving is 25 hours from UTC.
  auto days = byLocalDay(crossings(sky, first - 2, last + 2, altitudes.sines, yield), year.clock);
  for (std::int64_t day = first; day <= last; ++day) {
    const std::vector<Crossing>& events = days[day];
    const auto isRiseOrSet = [](const Crossing& crossing) { return crossing.altitude == 0; };
    const std::optional<DaySpan> span = year.clock.spanOf(day);
    if (span && std::ranges::none_of(events, isRiseOrSet)) {
      const bool isUp = isUpAtMiddle(sky, *span, altitudes.sines.front());
      document.addDay(isUp ? UpAllDay : DownAllDay, day);
    }
    addEvents(document, altitudes, day, events);
  }
}

}  // namespace

std::string almanac(const Place& place, std::span<const ClockYear> years,
                    const AlmanacOptions& options, const std::function<void()>& yield) {
  const Sky sky(place.latitude, place.longitude);
  const Altitudes altitudes(options.twilights);
  AlmanacDocument document(place, options);
  for (const ClockYear& year : years) addYear(document, sky, altitudes, year, yield);
  return std::move(document).finish();
}

}  // namespace veldrin
