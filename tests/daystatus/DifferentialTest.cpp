#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bench/bare/Bare.h"
#include "shell/values/Mathematics.h"
#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

// bench/bare repeats the arithmetic in plain functions. Equal bits prove that controls, strings,
// `Date` and the file stream change no result. AlmanacTest checks the arithmetic itself, with
// tests/data/sky.txt.

namespace veldrin::test {
namespace {

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

/// A bound as the user types it, and its day if the text is a date.
struct Bound {
  std::string text;
  std::optional<bare::Civil> day;
  bool isUsual;  // it is the default of the year, and `text` is unused
};

/// The inputs of the window and of the bare functions.
struct Inputs {
  bare::Place place;
  std::int32_t year;
  Bound start, end;
  bool isOn;
  bool isDownUnder;

  [[nodiscard]] bare::Saving saving() const { return {isOn, isDownUnder, start.day, end.day}; }
};

/// Random inputs with a fixed seed: any place and zone, and often the limits.
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
    const bool isEqual = !start.isUsual && oneIn(8);
    const Bound end = isEqual ? start : bound(year, bare::lastBound(year));
    return {{latitude, longitude, zone}, year, start, end, !oneIn(4), oneIn(2)};
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
    const auto& [latitude, longitude, zone] = inputs.place;
    WindowTest::fillIn(std::to_string(inputs.year), textOf(latitude), textOf(longitude),
                       textOf(zone));
    if (!inputs.start.isUsual) type("DSTStart", inputs.start.text);
    if (!inputs.end.isUsual) type("DSTEnd", inputs.end.text);
    person->tick("DaylightSavings", inputs.isOn);
    person->tick("DownUnderFlag", inputs.isDownUnder);
  }

  /// The inputs in the window, for failure messages.
  [[nodiscard]] std::string described() const {
    std::string all;
    for (const auto* box : {"DaylightSavings", "DownUnderFlag"})
      all += person->isTicked(box) ? '+' : '-';
    for (const auto* name :
         {"Latitude", "Longitude", "TimeZone", "WhichYear", "DSTStart", "DSTEnd"}) {
      all += " " + person->shown(name);
    }
    return all;
  }

  Source source;
};

// All NaNs count as equal.
TEST_F(DifferentialTest, EachStepOfTheSearchGivesTheSameBits) {
  using Function = double (*)(double);
  const volatile auto sine = static_cast<Function>(std::sin);
  const volatile auto cosine = static_cast<Function>(std::cos);
  for (int count = 0; count < 20000; ++count) {
    const auto number = [this] { return source.number(2.0); };
    std::vector<std::pair<double, double>> pairs;
    // Years around 0, the year of the Gregorian reform, other years, and any integers.
    const bool isAny = source.oneIn(4);
    const std::array years{source.whole(-2, 1), 1582, source.whole(-20000, 20000), Smallest,
                           source.whole(Smallest, Largest)};
    const std::int32_t year = years.at(static_cast<std::size_t>(source.whole(0, 4)));
    const std::int32_t month = isAny ? source.whole(Smallest, Largest) : source.whole(-1, 14);
    const std::int32_t day = isAny ? source.whole(Smallest, Largest) : source.whole(-1, 33);
    const double x = number();
    pairs.emplace_back(window()->ModifiedJulianDate(year, month, day, x),
                       bare::ModifiedJulianDate(year, month, day, x));
    pairs.emplace_back(window()->iPart(x), bare::iPart(x));
    pairs.emplace_back(window()->fPart(x), bare::fPart(x));
    const double large = std::ldexp(x, source.whole(0, 80));
    pairs.emplace_back(Floor(large), std::floor(large));
    const double hours = 60.0 * x;
    ASSERT_EQ(window()->HHMMFormat(hours), String(bare::hhmm(hours))) << hours;
    ASSERT_EQ(window()->HHMMZZ(hours), String(bare::hhmmzz(hours))) << hours;

    const std::array y{x, number(), number()};
    struct {
      double xe = 0.0, ye = 0.0, z1 = 7.0, z2 = 7.0;
      std::int32_t roots = 0;
    } one, other;
    window()->QuadParabola(y[0], y[1], y[2], one.xe, one.ye, one.z1, one.z2, one.roots);
    bare::QuadParabola(y[0], y[1], y[2], other.xe, other.ye, other.z1, other.z2, other.roots);
    pairs.emplace_back(one.xe, other.xe);
    pairs.emplace_back(one.ye, other.ye);
    pairs.emplace_back(one.z1, other.z1);
    pairs.emplace_back(one.z2, other.z2);
    pairs.emplace_back(one.roots, other.roots);

    bare::Engine engine{static_cast<double>(source.whole(-200, 200) * (count % 2 == 0 ? 1 : 999))};
    window()->mjd0 = engine.mjd0;
    const double hour = source.oneIn(4) ? source.whole(0, 24) : 12.0 + source.number(12.0);
    const double lambda = source.number(180.0);
    pairs.emplace_back(window()->SineAltitude(hour, lambda, y[1], y[2]),
                       bare::SineAltitude(engine, hour, lambda, y[1], y[2]));
    pairs.emplace_back(window()->mjd0, engine.mjd0);
    const double angle = lambda * hours * hours;
    pairs.emplace_back(Sin(angle), sine(angle));
    pairs.emplace_back(Cos(angle), cosine(angle));

    for (std::size_t at = 0; at < pairs.size(); ++at) {
      const auto [actual, expected] = pairs[at];
      ASSERT_TRUE(bits(actual) == bits(expected) || (actual != actual && expected != expected))
          << "pair " << at << " of " << testing::PrintToString(y) << ", " << hour << "h, " << lambda
          << ": " << actual << ", not " << expected;
    }
  }
}

TEST_F(DifferentialTest, RiseAndSetHaveTheSameBitsAndTheStatusTheSameText) {
  for (int count = 0; count < 4000; ++count) {
    const Inputs inputs = source.inputs();
    const bare::Civil day =
        source.oneIn(4) ? source.day(-3000, 9999) : source.day(inputs.year, inputs.year);
    const Ref<Date> date = dayOf(day.year, day.month, day.day);
    const double seconds = date->TotalSeconds();
    window()->statusDate = date;
    fillIn(inputs);
    std::string expected = bare::status(inputs.place, inputs.saving(), day);
    std::ranges::replace(expected, '\n', '\r');
    ASSERT_EQ(status(), expected) << described();

    const auto [latitude, longitude, zone] = inputs.place;
    double rise = 0.0;
    double set = 0.0;
    window()->DoVeldrin(latitude, longitude, date, zone, rise, set);
    ASSERT_EQ(date->TotalSeconds(), seconds);
    double bareRise = 0.0;
    double bareSet = 0.0;
    bare::DoVeldrin(inputs.place, day, inputs.saving(), bareRise, bareSet);
    ASSERT_TRUE(bits(rise) == bits(bareRise) && bits(set) == bits(bareSet))
        << described() << ' ' << expected << ": " << rise << ' ' << set << ", not " << bareRise
        << ' ' << bareSet;
  }
}

TEST_F(DifferentialTest, AYearHasTheSameBytes) {
  for (int count = 0; count < 60; ++count) {
    const Inputs inputs = source.inputs();
    const double zone = inputs.place.zone;
    fillIn(inputs);
    const std::string year = generate();
    std::string expected;
    bare::writeYear(inputs.place, inputs.saving(), inputs.year,
                    [&](std::string_view line) { expected += line; });
    ASSERT_EQ(firstDifference(year, expected), "") << described();
    // A zone west of Greenwich gives the same times as the zone 24 hours further east.
    if (zone >= 0.0 || zone < -24.0) continue;
    type("TimeZone", textOf(zone + 24.0));
    ASSERT_EQ(firstDifference(generate(), year), "") << described();
  }
}

}  // namespace
}  // namespace veldrin::test
