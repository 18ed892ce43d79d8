#include <string>
#include <string_view>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using StatusTest = WindowTest;

TEST_F(StatusTest, RecomputedWhenAFieldIsLeftOrABoxTicked) {
  const std::string first = status();
  for (const char* const field : {"Latitude", "Longitude", "TimeZone"}) {
    const std::string before = status();
    person->type(field, "12");
    EXPECT_EQ(status(), before) << field;
    person->leave(field);
    EXPECT_NE(status(), before) << field;
  }
  for (const char* const box : {"DaylightSavings", "DownUnderFlag"}) {
    const std::string before = status();
    person->tick(box, !person->isTicked(box));
    // Off, daylight saving leaves nothing for the other box to change.
    EXPECT_NE(status(), before) << box;
    person->tick("DaylightSavings", true);
  }
  EXPECT_NE(status(), first);
}

TEST_F(StatusTest, AnEditOfABoundShowsAtTheNextRecomputation) {
  const std::string summer = status();
  for (const char* const bound : {"DSTStart", "DSTEnd"}) {
    const std::string before = person->shown(bound);
    type(bound, "never");
    EXPECT_EQ(status(), summer) << bound;
    person->leave("Latitude");
    EXPECT_EQ(status(), "6/21/2024\rSunrise = 04:13\rSunset = 20:11") << bound;
    type(bound, before);
    person->leave("Latitude");
    EXPECT_EQ(status(), summer);
  }
}

TEST_F(StatusTest, StepsMoveTheOneDateByADayAndNothingElse) {
  const struct {
    CivilMoment at;
    std::string_view before, after;
  } rows[] = {{{2024, 12, 31, 23, 59, 59}, "12/30/2024", "1/1/2025"},
              {{2024, 3, 1, 0, 0, 0}, "2/29/2024", "3/2/2024"},
              {{1900, 2, 28, 12, 0, 0}, "2/27/1900", "3/1/1900"},
              {{2025, 1, 1, 0, 0, 0}, "12/31/2024", "1/2/2025"}};
  for (const auto& row : rows) {
    host.stand(row.at);
    reopen();
    const Ref<Veldrin> veldrin = window();
    const Ref<Date> date = veldrin->statusDate;
    const double seconds = date->TotalSeconds();
    const std::string shown = status();
    const auto day = [&] { return status().substr(0, status().find('\r')); };
    person->press("BackOneDay");
    EXPECT_EQ(day(), row.before);
    std::string touched;
    toolkit.onControlChanged = [&](Control& control) { touched += text(control.Name) + " "; };
    person->press("ForwardOneDay");
    EXPECT_EQ(date->TotalSeconds(), seconds);
    EXPECT_EQ(status(), shown);
    person->press("ForwardOneDay");
    EXPECT_EQ(day(), row.after);
    EXPECT_EQ(veldrin->statusDate, date);
    EXPECT_EQ(touched, "Status Status ");
    toolkit.onControlChanged = nullptr;
  }
}

TEST_F(StatusTest, BoundsKeepTheirYearWhenTheDayLeavesIt) {
  window()->statusDate->Year(2025);
  person->leave("Latitude");
  EXPECT_EQ(status(), "6/21/2025\rSunrise = 04:13\rSunset = 20:11");
  EXPECT_EQ(person->shown("DSTStart"), "3/10/2024");
  person->tick("DownUnderFlag", true);
  EXPECT_EQ(status(), "6/21/2025\rSunrise = 05:13\rSunset = 21:11");
}

TEST_F(StatusTest, ADayIsMadeWhereThereIsNoneButNotByAStep) {
  const Ref<Veldrin> unopened = New<Veldrin>();
  unopened->CreateControls();
  EXPECT_EQ(raisedBy([&] { unopened->ForwardOneDay_Action(); }), "NilObjectException");
  EXPECT_EQ(raisedBy([&] { unopened->BackOneDay_Action(); }), "NilObjectException");
  EXPECT_FALSE(unopened->statusDate);
  // The conversion from degrees is still 0, so no altitude differs from another.
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
