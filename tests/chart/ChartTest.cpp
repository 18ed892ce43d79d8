#include "chart/Chart.h"

#include <gmock/gmock.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "almanac/Crossings.h"
#include "almanac/Sky.h"
#include "chart/SunDay.h"
#include "solar/RiseSetSearch.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::array BandNames{"night", "astronomical", "nautical", "civil", "day"};

struct Point {
  double x, y;
};

/// The closed rings of a path with the commands M, h, v and z.
std::vector<std::vector<Point>> ringsOf(const std::string& data) {
  std::vector<std::vector<Point>> rings;
  const char* next = data.c_str();
  const char* const end = next + data.size();
  const auto number = [&] {
    double value = 0.0;
    next = std::from_chars(next, end, value).ptr;
    return value;
  };
  Point at{};
  while (next != end) {
    const char command = *next++;
    if (command == 'M') {
      at.x = number();
      ++next;
      at.y = number();
      rings.emplace_back();
    }
    if (command == 'h') at.x += number();
    if (command == 'v') at.y += number();
    if (command != 'z') rings.back().push_back(at);
  }
  return rings;
}

/// Whether a ray from the point to the right crosses a ring an odd number of times.
bool isInside(const std::vector<Point>& ring, const Point& point) {
  bool isOdd = false;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& from = ring[i];
    const Point& to = ring[(i + 1) % ring.size()];
    if ((from.y > point.y) != (to.y > point.y) && from.x > point.x) isOdd = !isOdd;
  }
  return isOdd;
}

/// The bands of a picture, read from its SVG text.
struct Picture {
  std::array<std::vector<std::vector<Point>>, BandNames.size()> bands;

  explicit Picture(const std::string& svg) {
    for (std::size_t band = 0; band < BandNames.size(); ++band) {
      const std::string opening = std::string("<path id=\"") + BandNames[band] + '"';
      const std::size_t data = svg.find(" d=\"", svg.find(opening)) + 4;
      bands[band] = ringsOf(svg.substr(data, svg.find('"', data) - data));
    }
  }

  /// The indices of the bands that cover a point.
  [[nodiscard]] std::vector<std::size_t> bandsAt(const Point& point) const {
    std::vector<std::size_t> found;
    for (std::size_t band = 0; band < bands.size(); ++band) {
      for (const auto& ring : bands[band]) {
        if (isInside(ring, point)) found.push_back(band);
      }
    }
    return found;
  }
};

double minuteOf(std::int32_t year, std::int32_t month, std::int32_t day, double hour) {
  return static_cast<double>(dayNumber(year, month, day)) * MinutesOfDay + hour * MinutesOfHour;
}

const std::vector<ClockChange> European{{minuteOf(2026, 3, 29, 1), 120.0},
                                        {minuteOf(2026, 10, 25, 1), 60.0}};

struct Case {
  Place place;
  ClockYear year;
};

const std::vector<Case> Cases{
    {{"Freiburg", 47.99, 7.85}, {2026, ClockRules(60.0, European)}},
    {{"Quito", -0.2, -78.5}, {2026, ClockRules(-300.0)}},
    {{"Polar circle", 65.8, 24.1}, {2026, ClockRules(60.0, European)}},
    {{"Troms\u00F8", 69.65, 18.96}, {2026, ClockRules(60.0, European)}},
    {{"Kolkata", 22.57, 88.36}, {2024, ClockRules(330.0)}},
    {{"Lord Howe", -31.55, 159.08},
     {2026, ClockRules(660.0,
                       {{minuteOf(2026, 4, 4, 15), 630.0}, {minuteOf(2026, 10, 3, 15.5), 660.0}})}},
    {{"Apia", -13.83, -171.77}, {2011, ClockRules(-600.0, {{minuteOf(2011, 12, 30, 10), 840.0}})}},
    {{"Mean time", 52.37, 4.9}, {1900, ClockRules(19.0 + 32.0 / 60.0)}},
    {{"North Pole", 90.0, 0.0}, {2026, ClockRules(0.0)}},
};

class ChartTest : public ValuesTest {};

/// The number of altitudes below the Sun: -18, -12, -6 degrees and the altitude of sunrise.
std::size_t bandBySky(const Place& place, double moment) {
  const Sky sky(place.latitude, place.longitude);
  const double day = std::floor(moment / MinutesOfDay);
  const double sine = sky.sineAltitude(Sky::midnightOf(static_cast<std::int64_t>(day)),
                                       (moment - day * MinutesOfDay) / MinutesOfHour);
  std::size_t band = sine > solar::sineAtHorizon(solar::Rads) ? 1 : 0;
  for (const double degrees : {6.0, 12.0, 18.0}) {
    if (sine > std::sin(-degrees * std::numbers::pi / 180.0)) ++band;
  }
  return band;
}

// Random minutes of random days, a third of them in March or October, the months of `European`.
TEST_F(ChartTest, EachPointHasTheLightOfItsMoment) {
  std::mt19937 source(1);  // NOLINT: the same days in each run
  const auto random = [&](std::int64_t end) {
    return std::uniform_int_distribution<std::int64_t>(0, end - 1)(source);
  };
  for (const auto& [place, year] : Cases) {
    SCOPED_TRACE(place.name);
    const std::string svg = chart(place, "Zone", year, [] {});
    EXPECT_LT(svg.size(), 200'000);
    const Picture picture(svg);
    const std::int64_t first = dayNumber(year.year, 1, 1);
    for (int count = 0; count < 1500; ++count) {
      const std::int64_t change = dayNumber(year.year, count % 2 == 0 ? 3 : 10, 1);
      const std::int64_t day = count % 3 == 0 ? change + random(31) : first + random(365);
      const auto minute = static_cast<double>(random(MinutesOfDay));
      const auto bands = picture.bandsAt({static_cast<double>(day - first) + 0.5, minute + 0.5});
      ASSERT_EQ(bands.size(), 1) << day - first << ' ' << minute;
      const double moment = year.clock.momentOf(day, minute);
      EXPECT_TRUE(bands[0] == bandBySky(place, moment - 1.0) ||
                  bands[0] == bandBySky(place, moment + 1.0))
          << day - first << ' ' << minute;
    }
  }
}

TEST_F(ChartTest, SunrisesAndSunsetsAreTheEdgesOfTheDay) {
  const auto& [place, year] = Cases.front();
  const Picture picture(chart(place, "", year, [] {}));
  const std::array sines{solar::sineAtHorizon(solar::Rads)};
  const std::int64_t first = dayNumber(2026, 1, 1);
  const Sky sky(place.latitude, place.longitude);
  for (const Crossing& crossing : crossings(sky, first, first + 364, sines, [] {})) {
    const auto minute = static_cast<double>(crossing.minute());
    const std::int64_t day = year.clock.dayAt(minute);
    const double shown =
        minute + year.clock.offsetAt(minute) - static_cast<double>(day * MinutesOfDay);
    const double x = static_cast<double>(day - first) + 0.5;
    const std::size_t before = crossing.rises ? 3 : 4;
    EXPECT_THAT(picture.bandsAt({x, shown - 0.5}), testing::ElementsAre(before));
    EXPECT_THAT(picture.bandsAt({x, shown + 0.5}), testing::ElementsAre(7 - before));
  }
}

TEST_F(ChartTest, NamesAreEscapedAndNothingIsFetched) {
  const Place place{"A & B <\"c\"> 'd'", 10.0, 20.0};
  std::string svg = chart(place, "<zone>", {2026, ClockRules(0.0)}, [] {});
  EXPECT_THAT(svg, HasSubstr("A &amp; B &lt;&quot;c&quot;&gt; &#39;d&#39;"));
  EXPECT_THAT(svg, HasSubstr("&lt;zone&gt;"));
  std::string wide;
  while (wide.size() < 120) wide += "\u0416";
  EXPECT_THAT(chart({wide, 10.0, 20.0}, "", {2026, ClockRules(0.0)}, [] {}),
              HasSubstr("font-size=\"16\""));  // leaves room for the year
  svg.erase(svg.find("http://www.w3.org/2000/svg"), 26);
  for (const char* fetching : {"http", "url(", "@import", "href", "<script", "@font"}) {
    EXPECT_THAT(svg, Not(HasSubstr(fetching)));
  }
}

// Freiburg: within a day and two minutes of printed almanacs.
TEST_F(ChartTest, ExtremesAgreeWithPrintedAlmanacs) {
  const auto& [place, year] = Cases.front();
  const std::int64_t first = dayNumber(2026, 1, 1);
  const YearExtremes extremes =
      yearExtremes(sunDays(Light(place, first - 2, first + 366, [] {}), year));
  const auto near = [](const DayMinutes& found, std::int32_t month, std::int32_t day, int minutes) {
    EXPECT_LE(std::abs(found.day - dayNumber(2026, month, day)), 1) << month;
    EXPECT_NEAR(found.minutes, minutes, 2) << month;
  };
  near(extremes.longest, 6, 21, 16 * 60 + 5);
  near(extremes.shortest, 12, 22, 8 * 60 + 21);
  near(extremes.earliestSunrise.value(), 6, 16, 5 * 60 + 27);
  near(extremes.latestSunset.value(), 6, 25, 21 * 60 + 33);
}

}  // namespace
}  // namespace veldrin::test
