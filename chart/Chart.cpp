#include "chart/Chart.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "almanac/Coordinate.h"
#include "chart/ChartPage.h"
#include "chart/DayColumn.h"
#include "chart/Light.h"
#include "chart/SunDay.h"
#include "shell/host/Civil.h"

namespace veldrin {

std::string chart(const Place& place, std::string_view zoneName, const ClockYear& year,
                  const std::function<void()>& yield) {
  const std::int64_t first = dayNumber(year.year, 1, 1);
  const std::int64_t last = dayNumber(year.year, 12, 31);
  // Two days more at each end: a zone of 24 hours with daylight saving is 25 hours from UTC.
  const Light light(place, first - 2, last + 2, yield);
  std::vector<DayColumn> columns;
  for (std::int64_t day = first; day <= last; ++day) {
    columns.push_back(dayColumn(light, year.clock, day));
  }
  const std::vector<SunDay> days = sunDays(light, year);

  const std::string coordinates = Coordinate(place.latitude).words('N', 'S') + ", " +
                                  Coordinate(place.longitude).words('E', 'W');
  const std::string zone(zoneName);
  ChartPage page(year.year, place.name.empty() ? coordinates : place.name,
                 place.name.empty() ? zone : coordinates + "  \u00B7  " + zone);
  page.drawBands(columns);
  page.drawAxes();
  page.drawDays(days);
  page.drawKey();
  page.drawExtremes(yearExtremes(days));
  return std::move(page).finish();
}

}  // namespace veldrin
