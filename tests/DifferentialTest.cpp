#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "bench/bare/Bare.h"
#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

/// A bound as the user types it, and the day that it names, if any.
struct Bound {
  std::string text;
  std::optional<bare::Civil> day;
  bool isUsual;  // left as the choice of the year has written it
};

/// What stands in the window, and the same for the bare functions.
struct Inputs {
  bare::Place place;
  std::int32_t year;
  Bound start, end;
  bool on;
  bool downUnder;

  [[nodiscard]] bare::Saving saving() const { return {on, downUnder, start.day, end.day}; }
};

/// Random inputs, the same in every run: every place and zone, with the edges more often than
/// chance has them.
class Source {
 public:
  std::int32_t whole(std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution<std::int32_t>(from, to)(engine_);
  }
  bool oneIn(std::int32_t number) { return whole(1, number) == 1; }

  double number(double bound) {
    if (oneIn(8))
      return std::array{0.0, -0.0, bound, -bound}[static_cast<std::size_t>(whole(0, 3))];
    const double drawn = std::uniform_real_distribution<double>(-bound, bound)(engine_);
    return oneIn(2) ? drawn : std::round(drawn * 4.0) / 4.0;
  }

  bare::Civil day(std::int32_t firstYear, std::int32_t lastYear) {
    const std::int32_t year = whole(firstYear, lastYear);
    const std::int32_t month = whole(1, 12);
    return {year, month, whole(1, daysInMonth(year, month))};
  }

  Inputs inputs() {
    const double latitude = number(90.0);
    const double longitude = number(180.0);
    const double zone = number(oneIn(4) ? 30.0 : 14.0);
    const std::int32_t year = oneIn(4) ? whole(1, 9999) : whole(1850, 2150);
    const Bound start = bound(year, bare::firstBound(year));
    return {{latitude, longitude, zone},        year,      start,
            bound(year, bare::lastBound(year)), !oneIn(4), oneIn(2)};
  }

 private:
  Bound bound(std::int32_t year, bare::Civil usual) {
    if (oneIn(8)) {
      const char* const noDates[] = {"", "abc", "2/30/2008", "13/1/2008", "3/9", "3//9/2008"};
      return {noDates[whole(0, 5)], std::nullopt, false};
    }
    if (oneIn(2)) return {"", usual, true};
    const bare::Civil drawn = oneIn(8) ? day(year, std::min(year + 1, 9999)) : day(year, year);
    std::string digits = std::to_string(drawn.year);
    digits.insert(0, 4 - digits.size(), '0');
    const std::string mark = oneIn(2) ? "/" : "-";
    const std::string rest = std::to_string(drawn.month) + mark + std::to_string(drawn.day);
    return {mark == "/" ? rest + mark + digits : digits + mark + rest, drawn, false};
  }

  std::mt19937_64 engine_{6};
};

class DifferentialTest : public WindowTest {
 protected:
  void fillIn(const Inputs& inputs) const {
    choose(std::to_string(inputs.year));
    type("Latitude", textOf(inputs.place.latitude));
    type("Longitude", textOf(inputs.place.longitude));
    type("TimeZone", textOf(inputs.place.zone));
    if (!inputs.start.isUsual) type("DSTStart", inputs.start.text);
    if (!inputs.end.isUsual) type("DSTEnd", inputs.end.text);
    person->tick("DaylightSavings", inputs.on);
    person->tick("DownUnderFlag", inputs.downUnder);
  }

  /// What the window shows, for a message.
  [[nodiscard]] std::string describe(const Inputs& inputs) const {
    std::string all = inputs.on ? "" : "off ";
    if (inputs.downUnder) all += "down under ";
    for (const auto* name :
         {"Latitude", "Longitude", "TimeZone", "WhichYear", "DSTStart", "DSTEnd"}) {
      all += person->shown(name) + " ";
    }
    return all;
  }

  Source source;
};

TEST_F(DifferentialTest, DatesOfAnyIntegersAreTheSameNumber) {
  constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();
  for (int count = 0; count < 20000; ++count) {
    const std::int32_t bound = count % 2 == 0 ? 20000 : Largest;
    const std::int32_t year = source.oneIn(50) ? Smallest : source.whole(-bound, bound);
    const std::int32_t month =
        source.oneIn(4) ? source.whole(Smallest, Largest) : source.whole(-9, 20);
    const std::int32_t day =
        source.oneIn(4) ? source.whole(Smallest, Largest) : source.whole(-9, 40);
    ASSERT_EQ(bits(window()->ModifiedJulianDate(year, month, day, 6.0)),
              bits(bare::ModifiedJulianDate(year, month, day, 6.0)))
        << year << ' ' << month << ' ' << day;
  }
}

TEST_F(DifferentialTest, RiseAndSetAreTheSameBitsAndTheStatusTheSameText) {
  for (int count = 0; count < 4000; ++count) {
    const Inputs inputs = source.inputs();
    const bare::Civil day =
        source.oneIn(4) ? source.day(-3000, 9999) : source.day(inputs.year, inputs.year);
    const Ref<Date> date = dayOf(day.year, day.month, day.day);
    window()->statusDate = date;
    fillIn(inputs);
    std::string expected = bare::status(inputs.place, inputs.saving(), day);
    std::ranges::replace(expected, '\n', '\r');
    ASSERT_EQ(status(), expected) << describe(inputs);

    const auto [latitude, longitude, zone] = inputs.place;
    double rise = 0.0;
    double set = 0.0;
    window()->DoVeldrin(latitude, longitude, date, zone, rise, set);
    double bareRise = 0.0;
    double bareSet = 0.0;
    bare::DoVeldrin(inputs.place, day, inputs.saving(), bareRise, bareSet);
    ASSERT_TRUE(bits(rise) == bits(bareRise) && bits(set) == bits(bareSet))
        << describe(inputs) << ' ' << expected << ": " << rise << ' ' << set << ", not " << bareRise
        << ' ' << bareSet;
  }
}

TEST_F(DifferentialTest, YearsAreTheSameBytes) {
  bool midnightMet = false;
  for (int count = 0; count < 60; ++count) {
    const Inputs inputs = source.inputs();
    fillIn(inputs);
    std::string expected;
    bare::writeYear(inputs.place, inputs.saving(), inputs.year,
                    [&](std::string_view line) { expected += line; });
    ASSERT_EQ(firstDifference(generate(), expected), "") << describe(inputs);
    midnightMet = midnightMet || expected.find("T240000") != std::string::npos;
  }
  // The rounding that reaches midnight without a wrap is rare; the years drawn have it.
  EXPECT_TRUE(midnightMet);
}

}  // namespace
}  // namespace veldrin::test
