#include <bit>
#include <string>
#include <string_view>
#include <tuple>

#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

using OpeningTest = WindowTest;

constexpr std::string_view InSummerTime = "6/21/2024\rSunrise = 05:13\rSunset = 21:11";
constexpr std::string_view InStandardTime = "6/21/2024\rSunrise = 04:13\rSunset = 20:11";

TEST_F(OpeningTest, TimeZoneIsTheHostsOffsetWithoutDaylightSaving) {
  const CivilMoment January{2024, 1, 15, 12, 0, 0};
  const CivilMoment July{2024, 7, 15, 12, 0, 0};
  const struct {
    CivilMoment local;
    double offset;
    const char* zone;
  } rows[] = {{January, -5.0, "-5"},
              {July, -4.0, "-5"},
              {January, 0.0, "0"},
              // Southern hemisphere: an hour too high in summer, an hour too low in winter.
              {January, 11.0, "11"},
              {July, 10.0, "9"},
              // The offset is truncated before the hour is subtracted.
              {January, 5.5, "5"},
              {January, -3.5, "-3"},
              {July, -2.5, "-3"},
              {January, -0.5, "0"},
              // The period begins and ends at midnight, two hours before the host's clock changes.
              {{2024, 3, 9, 23, 59, 59}, -5.0, "-5"},
              {{2024, 3, 10, 0, 0, 0}, -5.0, "-6"},
              {{2024, 11, 2, 23, 59, 59}, -4.0, "-5"},
              {{2024, 11, 3, 0, 0, 0}, -4.0, "-4"}};
  for (const auto& row : rows) {
    host.setClock(row.local, row.offset);
    reopen();
    EXPECT_EQ(person->shown("TimeZone"), row.zone) << row.local.month << '/' << row.local.day << ' '
                                                   << row.local.hour << "h at " << row.offset;
  }
}

TEST_F(OpeningTest, TimeZoneFollowsTheHostsChangeOfOffset) {
  // Central Europe: at 2024-03-31 01:00 UTC the offset changes from one hour to two.
  constexpr std::int64_t Change = dayNumber(2024, 3, 31) * 86400 + 3600;
  host.zone = [](std::int64_t at) { return at < Change ? 3600 : 7200; };
  for (const auto& [moment, zone, hour] :
       {std::tuple(Change - 1, "0", 1), {Change, "1", 3}, {Change - 86400, "0", 2}}) {
    host.moment = moment;
    reopen();
    EXPECT_EQ(person->shown("TimeZone"), zone);
    EXPECT_EQ(window()->statusDate->Hour(), hour);
  }
}

TEST_F(OpeningTest, SetsNumbersBoundsDayAndStatus) {
  const Ref<Veldrin> veldrin = window();
  EXPECT_EQ(std::bit_cast<std::uint64_t>(veldrin->Pi), 0x400921FB54442D18U);
  EXPECT_EQ(veldrin->TwoPi, 2.0 * veldrin->Pi);
  EXPECT_EQ(veldrin->Rads, veldrin->Pi / 180.0);
  EXPECT_EQ(veldrin->Degs, 180.0 / veldrin->Pi);
  EXPECT_EQ(person->shown("DSTStart"), "3/10/2024");
  EXPECT_EQ(person->shown("DSTEnd"), "11/3/2024");
  EXPECT_EQ(person->shown("Latitude"), "47.5");
  EXPECT_EQ(person->shown("Longitude"), "-122.5");
  EXPECT_EQ(person->shown("WhichYear"), "2008");
  EXPECT_TRUE(person->isTicked("DaylightSavings"));
  EXPECT_FALSE(person->isTicked("DownUnderFlag"));
  EXPECT_EQ(veldrin->statusDate->referenceCount(), 1);
  EXPECT_EQ(status(), InSummerTime);
  EXPECT_EQ(window(), veldrin);
  EXPECT_EQ(_WindowSupport.Windows.size(), 1U);
}

TEST_F(OpeningTest, AFailedOpeningLeavesNothing) {
  finalizeGlobals();
  const std::int64_t before = liveObjectCount();
  const std::size_t steps = toolkit.steps.size();
  ClassRecord* const view = Veldrin::__Lookup();
  const auto close = [](Object* object) { static_cast<Window&>(*object).Close(); };
  const auto fail = [](Object*) { Raise<OutOfBoundsException>(); };
  for (const char* const event : {"CreateControls", "AddMenuHandlers", "Open"}) {
    SCOPED_TRACE(event);
    {
      const BoundEvent closes(view, String(event), close);
      New<Veldrin>()->Constructor();
    }
    {
      const BoundEvent fails(view, String(event), fail);
      EXPECT_EQ(raisedBy([] { New<Veldrin>()->Constructor(); }), "OutOfBoundsException");
    }
    EXPECT_TRUE(_WindowSupport.Windows.empty());
    MenuBar1::_implicitInstance = nullptr;
    EXPECT_EQ(liveObjectCount(), before);
  }
  EXPECT_EQ(toolkit.steps.size(), steps + 3);  // three "quit"; no window was shown
}

TEST_F(OpeningTest, TheChooserSelectsThePresentYearIfItHasIt) {
  const struct {
    std::int32_t year, row;
    std::string_view start, end;  // the bounds after `WhichYear_Open`
    bool isChanged;
  } rows[] = {{2006, 0, "1/3/2000", "", false},
              {2008, 0, "3/9/2008", "11/2/2008", false},
              {2014, 6, "3/9/2014", "11/2/2014", true},
              {2020, 12, "3/8/2020", "11/1/2020", true},
              {2030, 0, "1/3/2000", "", false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.year);
    host.setClock({row.year, 6, 21, 12, 0, 0});
    const Ref<Veldrin> unopened = New<Veldrin>();
    unopened->CreateControls();
    const std::int64_t yields = toolkit.backgroundTasks;
    unopened->WhichYear_Open();
    EXPECT_EQ(unopened->WhichYear()->ListIndex(), row.row);
    EXPECT_EQ(text(unopened->DSTStart()->Text()), row.start);
    EXPECT_EQ(text(unopened->DSTEnd()->Text()), row.end);
    // "Change" updates the status, which creates a date.
    EXPECT_EQ(static_cast<bool>(unopened->statusDate), row.isChanged);
    // One yield for each row that does not match.
    if (row.year > 2020) {
      EXPECT_EQ(toolkit.backgroundTasks - yields, 13);
    }
    // `Event_Open` writes the bounds again, but selects no row.
    unopened->Event_Open();
    EXPECT_TRUE(text(unopened->DSTStart()->Text()).ends_with(std::to_string(row.year)));
    EXPECT_EQ(unopened->WhichYear()->ListIndex(), row.row);
  }
}

TEST_F(OpeningTest, AChosenYearSetsTheBoundsAndKeepsTheDay) {
  const Ref<Date> day = window()->statusDate;
  const double seconds = day->TotalSeconds();
  const struct {
    std::int32_t row;
    std::string_view start, times;
  } rows[] = {{0, "1/1/2024", InSummerTime},  // row 0 is selected already
              {3, "3/13/2011", InStandardTime},
              {0, "3/9/2008", InStandardTime},
              {-1, "1/1/2024", InStandardTime}};  // no row: only the status is updated
  for (const auto& row : rows) {
    type("DSTStart", "1/1/2024");
    row.row < 0 ? window()->WhichYear()->ListIndex(-1) : person->choose("WhichYear", row.row);
    EXPECT_EQ(person->shown("DSTStart"), row.start) << row.row;
    EXPECT_EQ(status(), row.times) << row.row;
    EXPECT_EQ(person->shown("TimeZone"), "-8");
  }
  EXPECT_EQ(person->shown("WhichYear"), "");
  EXPECT_EQ(window()->statusDate, day);
  EXPECT_EQ(day->TotalSeconds(), seconds);
}

using StatusTest = WindowTest;

TEST_F(StatusTest, TheStepButtonsMoveTheDateByADay) {
  host.setClock({2024, 12, 31, 23, 59, 59});
  reopen();
  const Ref<Date> date = window()->statusDate;
  const double seconds = date->TotalSeconds();
  const std::string shown = status();
  std::string touched;
  toolkit.onControlChanged = [&](Control& control) { touched += text(control.Name) + " "; };
  person->press("BackOneDay");
  EXPECT_EQ(status().substr(0, 11), "12/30/2024\r");
  person->press("ForwardOneDay");
  EXPECT_EQ(date->TotalSeconds(), seconds);
  EXPECT_EQ(status(), shown);
  person->press("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "1/1/2025\r");
  EXPECT_EQ(window()->statusDate, date);
  EXPECT_EQ(touched, "Status Status Status ");
  toolkit.onControlChanged = nullptr;
}

TEST_F(StatusTest, UpdateStatusCreatesAMissingDateButAStepRaises) {
  const Ref<Veldrin> unopened = New<Veldrin>();
  unopened->CreateControls();
  EXPECT_EQ(raisedBy([&] { unopened->ForwardOneDay_Action(); }), "NilObjectException");
  EXPECT_EQ(raisedBy([&] { unopened->BackOneDay_Action(); }), "NilObjectException");
  EXPECT_FALSE(unopened->statusDate);
  // `Rads` is still 0, so the altitude of the sun is constant.
  unopened->UpdateStatus();
  const Ref<Date> made = unopened->statusDate;
  ASSERT_TRUE(made);
  EXPECT_EQ(text(unopened->Status()->Text()), "6/21/2024\rSunrise = N/A\rSunset = N/A");
  unopened->Event_Open();
  EXPECT_NE(unopened->statusDate, made);
  EXPECT_EQ(made->referenceCount(), 1);
  EXPECT_EQ(text(unopened->Status()->Text()), "6/21/2024\rSunrise = 05:13\rSunset = 21:11");
}

}  // namespace
}  // namespace veldrin::test
