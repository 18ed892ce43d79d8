#include <string>
#include <utility>
#include <vector>

#include "bench/bare/Bare.h"
#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using SolarTest = WindowTest;
using CivilTimeTest = WindowTest;

TEST_F(SolarTest, TheSearchEndsAfterBothEvents) {
  const struct {
    double latitude, longitude, zone;
    std::int32_t month;
    int passes;  // the 12th moves `mjd0` to the next day
  } rows[] = {{47.5, -122.5, -8.0, 6, 7}, {-33.87, 151.21, 10.0, 12, 10}, {70.0, 0.0, 0.0, 6, 12}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.latitude);
    const Ref<Date> day = dayOf(2024, row.month, 21);
    const std::int64_t yields = toolkit.backgroundTasks;
    double rise = 0.0;
    double set = 0.0;
    window()->DoVeldrin(row.latitude, row.longitude, day, row.zone, rise, set);
    EXPECT_EQ(toolkit.backgroundTasks - yields, row.passes);
    const double searched = window()->ModifiedJulianDate(2024, row.month, 21, 0.0);
    EXPECT_EQ(window()->mjd0, row.passes == 12 ? searched + 1.0 : searched);
  }
}

TEST_F(SolarTest, TheZoneMovesATimeByAtMostOneDay) {
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

TEST_F(CivilTimeTest, BoundsAreTheSundaysOfEveryYear) {
  // On a leap day, which most years do not have.
  host.setClock({2024, 2, 29, 23, 59, 0});
  const Ref<Veldrin> veldrin = window();
  for (int number = 1; number <= 9999; ++number) {
    veldrin->SetDaylightSavingsBounds(number);
    for (const auto& [field, bound] : {std::pair(veldrin->DSTStart(), bare::firstBound(number)),
                                       {veldrin->DSTEnd(), bare::lastBound(number)}}) {
      ASSERT_EQ(field->Text(), dayOf(bound.year, bound.month, bound.day)->ShortDate());
    }
  }
}

TEST_F(CivilTimeTest, BoundsReplaceEditsAndChangeNothingElse) {
  person->type("DSTStart", "tomorrow");
  const std::string before = status();
  std::vector<std::string> touched;
  toolkit.onControlChanged = [&](Control& control) { touched.push_back(text(control.Name)); };
  const std::int64_t yields = toolkit.backgroundTasks;
  window()->SetDaylightSavingsBounds(2008);
  EXPECT_EQ(touched, (std::vector<std::string>{"DSTStart", "DSTEnd"}));
  EXPECT_EQ(text(window()->DSTStart()->Text()), "3/9/2008");
  EXPECT_EQ(status(), before);
  // One for each of March 1 to 8 and November 1. A pass that finds its Sunday does not yield.
  EXPECT_EQ(toolkit.backgroundTasks - yields, 9);
}

TEST_F(CivilTimeTest, TheAddedHourWrapsAtMidnightOnce) {
  const struct {
    double time, expected;
  } rows[] = {{6.25, 7.25}, {23.0, 0.0}, {-1.0, 0.0}, {-3.0, 22.0}, {49.0, 26.0}};
  for (const auto& row : rows) {
    double time = row.time;
    window()->DoDaylightSavings(window()->statusDate, time);
    EXPECT_EQ(time, row.expected) << row.time;
  }
}

}  // namespace
}  // namespace veldrin::test
