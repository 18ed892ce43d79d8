#include "almanac/Almanac.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "almanac/AlmanacDocument.h"
#include "almanac/Crossings.h"
#include "almanac/LocalDays.h"
#include "shell/Civil.h"
#include "shell/Mathematics.h"

namespace veldrin {
namespace {

constexpr int DegreesOfTwilight = 6;  // between one and the next

/// The names of the events at an altitude: row 0 for sunrise and sunset, row n for the twilight of
/// 6 n degrees.
constexpr struct {
  EventKind rising, setting;
} Passings[] = {
    {{"sunrise", "Sunrise"}, {"sunset", "Sunset"}},
    {{"civil-dawn", "Civil dawn"}, {"civil-dusk", "Civil dusk"}},
    {{"nautical-dawn", "Nautical dawn"}, {"nautical-dusk", "Nautical dusk"}},
    {{"astronomical-dawn", "Astronomical dawn"}, {"astronomical-dusk", "Astronomical dusk"}},
};

constexpr EventKind UpAllDay{"no-sunset", "Sun up all day"};
constexpr EventKind DownAllDay{"no-sunrise", "Sun down all day"};

/// The altitudes that are searched for: first that of sunrise and sunset, then the twilights'.
struct Altitudes {
  std::vector<double> sines;
  std::vector<std::size_t> passings;

  Altitudes(double rads, const std::set<Twilight>& twilights)
      // As the engine has it: fifty minutes of arc under the horizon.
      : sines{Sin(((-rads) * 50.0) / 60.0)}, passings{0} {
    for (const Twilight twilight : twilights) {
      const auto degrees = static_cast<std::size_t>(twilight);
      sines.push_back(Sin((-rads) * static_cast<double>(degrees)));
      passings.push_back(degrees / DegreesOfTwilight);
    }
  }

  [[nodiscard]] const EventKind& kindOf(const Crossing& crossing) const {
    const auto& passing = Passings[passings[crossing.altitude]];
    return crossing.rises ? passing.rising : passing.setting;
  }
};

bool isUpAtMiddle(const Sky& sky, const LocalDay& local, double sine) {
  const double middle = (local.begin + local.end) / 2.0;
  const double day = Floor(middle / MinutesOfDay);
  const double hour = (middle - day * MinutesOfDay) / 60.0;
  return sky.sineAltitude(static_cast<std::int64_t>(day), hour) > sine;
}

void addEvents(AlmanacDocument& document, const Altitudes& altitudes, const LocalDay& day,
               std::span<const Crossing> events) {
  for (auto event = events.begin(); event != events.end(); ++event) {
    const auto sameKind = [&](const Crossing& other) {
      return other.altitude == event->altitude && other.rises == event->rises;
    };
    const std::int64_t ordinal = std::count_if(events.begin(), event, sameKind) + 1;
    document.addMoment(altitudes.kindOf(*event), day.number, ordinal, event->minute(),
                       event->altitude == 0);
  }
}

}  // namespace

std::string almanac(const Ref<Veldrin>& window, const AlmanacOptions& options) {
  const Sky sky(window);
  const Altitudes altitudes(window->Rads, options.twilights);
  const std::vector<LocalDay> days = localDays(window);
  // A zone and daylight saving take a local day up to 25 hours away from that of Greenwich.
  const std::vector<Crossing> found =
      crossings(sky, days.front().number - 2, days.back().number + 2, altitudes.sines);
  const auto firstFrom = [&found](double minute) {
    return std::ranges::lower_bound(found, minute, {}, [](const Crossing& crossing) {
      return static_cast<double>(crossing.minute());
    });
  };

  AlmanacDocument document(options, sky.latitude, sky.longitude);
  for (const LocalDay& day : days) {
    const std::span<const Crossing> events(firstFrom(day.begin), firstFrom(day.end));
    const auto isOfSun = [](const Crossing& crossing) { return crossing.altitude == 0; };
    if (std::ranges::none_of(events, isOfSun)) {
      const bool isUp = isUpAtMiddle(sky, day, altitudes.sines.front());
      document.addDay(isUp ? UpAllDay : DownAllDay, day.number);
    }
    addEvents(document, altitudes, day, events);
  }
  return std::move(document).finish();
}

}  // namespace veldrin
