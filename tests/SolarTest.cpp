#include <bit>
#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "shell/Mathematics.h"
#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using SolarTest = WindowTest;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST_F(SolarTest, WholeAndFractionalPartKeepTheSign) {
  const struct {
    double x, whole, fraction;
  } rows[] = {{0.0, 0.0, 0.0}, {2.9, 2.0, 2.9 - 2.0}, {-2.9, -2.0, 2.0 - 2.9}, {-0.25, 0.0, -0.25}};
  for (const auto& row : rows) {
    EXPECT_EQ(window()->iPart(row.x), row.whole) << row.x;
    EXPECT_EQ(window()->fPart(row.x), row.fraction) << row.x;
  }
}

// With the reform and its gap, and the years up to 0, of which -1 falls on the year 0.
TEST_F(SolarTest, ModifiedJulianDateOfKnownMoments) {
  const struct {
    std::int32_t year, month, day;
    double hour, expected;
  } rows[] = {{2000, 1, 1, 12.0, 51544.5},   {2026, 11, 16, 30.0, 61361.25},
              {1000, 1, 1, 0.0, -313693.0},  {1582, 10, 4, 0.0, -100841.0},
              {1582, 10, 5, 0.0, -100850.0}, {0, 3, 1, 0.0, -678883.0},
              {-1, 3, 1, 0.0, -678883.0},    {-2, 3, 1, 0.0, -679249.0}};
  for (const auto& row : rows) {
    EXPECT_EQ(window()->ModifiedJulianDate(row.year, row.month, row.day, row.hour), row.expected)
        << row.year << '-' << row.month << '-' << row.day << ' ' << row.hour;
  }
}

TEST_F(SolarTest, ModifiedJulianDateCountsEveryDayOfTheGregorianCalendar) {
  using namespace std::chrono;
  constexpr double EpochOfChrono = 40587.0;
  for (sys_days day = 1582y / October / 15; day < sys_days(2500y / January / 1); day += days(1)) {
    const year_month_day fields(day);
    ASSERT_EQ(window()->ModifiedJulianDate(static_cast<int>(fields.year()),
                                           static_cast<std::int32_t>(unsigned{fields.month()}),
                                           static_cast<std::int32_t>(unsigned{fields.day()}), 0.0),
              EpochOfChrono + static_cast<double>(day.time_since_epoch().count()));
  }
}

TEST_F(SolarTest, SineAndCosineAreTheLibrarysOwn) {
  using Function = double (*)(double);
  const volatile auto sine = static_cast<Function>(std::sin);
  const volatile auto cosine = static_cast<Function>(std::cos);
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> exponent(-6.0, 6.0);
  for (int count = 0; count < 20000; ++count) {
    const double angle = (count % 2 == 0 ? 1.0 : -1.0) * std::pow(10.0, exponent(random));
    // Both of one angle, side by side, as the Sun's position has them.
    const double sl = Sin(angle);
    const double x = Cos(angle);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(sl), std::bit_cast<std::uint64_t>(sine(angle)));
    ASSERT_EQ(std::bit_cast<std::uint64_t>(x), std::bit_cast<std::uint64_t>(cosine(angle)));
  }
}

// The third row is J. Meeus, Astronomical Algorithms, example 25.a: 1992-10-13 0h.
TEST_F(SolarTest, TheSunStandsWhereTheAlmanacsPutIt) {
  const struct {
    double mjd, ra, dec;
  } rows[] = {{60482.5, 6.04, 23.44}, {60665.5, 18.01, -23.44}, {48908.0, 13.2254, -7.7851}};
  for (const auto& row : rows) {
    double ra = 0.0;
    double dec = 0.0;
    window()->TheSun((row.mjd - 51544.5) / 36525.0, ra, dec);
    EXPECT_NEAR(ra, row.ra, 0.005) << row.mjd;
    EXPECT_NEAR(dec, row.dec, 0.005) << row.mjd;
  }
}

// J. Meeus, Astronomical Algorithms, examples 12.a and 12.b: 1987-04-10 at 0h and 19h21m.
TEST_F(SolarTest, SiderealTimeIsThatOfTheBooksAndNotNormalised) {
  const struct {
    double mjd, lambda, hours;
  } rows[] = {{46895.0, 0.0, 13.0 + 10.0 / 60.0 + 46.3668 / 3600.0},
              {46895.80625, 0.0, 8.0 + 34.0 / 60.0 + 57.0896 / 3600.0},
              {46895.0, 15.0, 12.0 + 10.0 / 60.0 + 46.3668 / 3600.0}};
  for (const auto& row : rows) {
    const double hours = window()->LocalSiderialTime(row.mjd, row.lambda);
    EXPECT_NEAR(hours, row.hours - 24.0, 1e-6) << row.mjd;
    EXPECT_EQ(window()->mjd0, 46895.0);
  }
}

TEST_F(SolarTest, AltitudeMovesTheDayAtItsEndAndBefore1858EveryHour) {
  const struct {
    double mjd0, hour, after;
  } rows[] = {{60482.0, 0.0, 60482.0}, {60482.0, 23.99, 60482.0}, {60482.0, 24.0, 60483.0},
              {-100.0, 0.0, -100.0},   {-100.0, 1.0, -99.0},      {-98.0, 24.0, -97.0}};
  for (const auto& row : rows) {
    window()->mjd0 = row.mjd0;
    static_cast<void>(window()->SineAltitude(row.hour, 0.0, 1.0, 0.0));
    EXPECT_EQ(window()->mjd0, row.after) << row.mjd0 << " at " << row.hour;
  }
}

TEST_F(SolarTest, ParabolaGivesVertexAndRootsInside) {
  constexpr double Kept = 7.0;  // what stands in z1 and z2 before
  const struct {
    double ym, y0, yp, xe, ye, z1, z2;
    std::int32_t nz;
  } rows[] = {{1.0, -1.0, 1.0, 0.0, -1.0, -0.7071, 0.7071, 2},
              {-1.0, 0.2, 1.0, 2.5, 1.45, -0.1926, 5.1926, 1},
              {1.0, 0.2, -1.0, -2.5, 1.45, 0.1926, 0.1926, 1},
              {1.0, 1.5, 1.0, 0.0, 1.5, 1.7321, 1.7321, 0},
              {1.0, 0.5, 1.0, 0.0, 0.5, Kept, Kept, 0},
              {1.0, 0.0, 1.0, 0.0, 0.0, Kept, Kept, 0},
              {0.0, 1.0, 0.0, 0.0, 1.0, -1.0, 1.0, 2},
              {-1.0, 0.0, 1.0, -Infinity, NotANumber, NotANumber, NotANumber, 1}};
  const auto near = [](double actual, double expected) {
    return (std::isnan(actual) && std::isnan(expected)) || actual == expected ||
           std::fabs(actual - expected) < 0.00005;
  };
  for (const auto& row : rows) {
    double xe = 0.0;
    double ye = 0.0;
    double z1 = Kept;
    double z2 = Kept;
    std::int32_t nz = 9;
    window()->QuadParabola(row.ym, row.y0, row.yp, xe, ye, z1, z2, nz);
    EXPECT_TRUE(near(xe, row.xe) && near(ye, row.ye) && near(z1, row.z1) && near(z2, row.z2) &&
                nz == row.nz)
        << row.ym << ' ' << row.y0 << ' ' << row.yp << " gave " << xe << ' ' << ye << ' ' << z1
        << ' ' << z2 << ", " << nz;
  }
}

TEST_F(SolarTest, RiseAndSetOfKnownDays) {
  const struct {
    double latitude, longitude, zone;
    std::int32_t month, day;
    double rise, set;
    int passes;  // the last of 12 moves the day on
  } rows[] = {
      {47.5, -122.5, -8.0, 6, 21, 4.21, 20.18, 7},  {47.5, -122.5, -8.0, 12, 21, 7.92, 16.35, 8},
      {52.52, 13.405, 1.0, 6, 21, 3.72, 20.56, 10}, {-33.87, 151.21, 10.0, 12, 21, 4.69, 19.10, 10},
      {0.0, 0.0, 0.0, 3, 20, 6.07, 18.17, 10},      {0.0, 0.0, 0.0, 6, 21, 5.97, 18.09, 10},
      {70.0, 0.0, 0.0, 6, 21, -1.0, -1.0, 12},      {70.0, 0.0, 0.0, 12, 21, -1.0, -1.0, 12},
      {70.0, 0.0, 0.0, 5, 15, 0.53, -1.0, 12},      {70.0, 0.0, 0.0, 7, 26, -1.0, 23.92, 12},
      {90.0, 0.0, 0.0, 6, 21, -1.0, -1.0, 12},      {-90.0, 0.0, 0.0, 6, 21, -1.0, -1.0, 12}};
  window()->DaylightSavings()->Value(false);
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.latitude << ' ' << row.month << '/' << row.day);
    const Ref<Date> day = dayOf(2024, row.month, row.day);
    const std::int64_t yields = toolkit.backgroundTasks();
    double rise = 0.0;
    double set = 0.0;
    window()->DoVeldrin(row.latitude, row.longitude, day, row.zone, rise, set);
    EXPECT_EQ(std::round(rise * 100.0), std::round(row.rise * 100.0)) << rise;
    EXPECT_EQ(std::round(set * 100.0), std::round(row.set * 100.0)) << set;
    EXPECT_EQ(toolkit.backgroundTasks() - yields, row.passes);
    const double searched = window()->ModifiedJulianDate(2024, row.month, row.day, 0.0);
    EXPECT_EQ(window()->mjd0, row.passes == 12 ? searched + 1.0 : searched);
  }
}

TEST_F(SolarTest, ZoneIsReckonedModuloADayOnlyOnce) {
  window()->DaylightSavings()->Value(false);
  const auto times = [day = dayOf(2024, 6, 21)](double zone) {
    double rise = 0.0;
    double set = 0.0;
    window()->DoVeldrin(0.0, 0.0, day, zone, rise, set);
    return std::pair(rise, set);
  };
  EXPECT_EQ(times(-5.0), times(19.0));
  const auto [rise, set] = times(0.0);
  EXPECT_EQ(times(24.0 - rise).first, 0.0);
  EXPECT_EQ(times(24.0 - set).second, 0.0);
  EXPECT_NEAR(times(60.0).first, rise + 36.0, 1e-12);
  EXPECT_NEAR(times(-60.0).second, set - 36.0, 1e-12);
}

TEST_F(SolarTest, NilDayRaisesBeforeAnythingChanges) {
  window()->mjd0 = 5.0;
  double rise = 3.0;
  double set = 4.0;
  EXPECT_EQ(raisedBy([&] { window()->DoVeldrin(0.0, 0.0, nullptr, 0.0, rise, set); }),
            "NilObjectException");
  EXPECT_EQ(window()->mjd0, 5.0);
  EXPECT_EQ(std::pair(rise, set), std::pair(3.0, 4.0));
}

}  // namespace
}  // namespace veldrin::test
