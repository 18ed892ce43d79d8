#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using CivilTimeTest = WindowTest;

Ref<Date> moment(const CivilMoment& at) {
  Ref<Date> date = dayOf(at.year, at.month, at.day);
  date->Hour(at.hour);
  date->Minute(at.minute);
  return date;
}

std::string shortDate(const std::chrono::sys_days& day) {
  const std::chrono::year_month_day fields(day);
  std::string year = std::to_string(static_cast<int>(fields.year()));
  year.insert(0, year.size() < 4 ? 4 - year.size() : 0, '0');
  return std::to_string(unsigned{fields.month()}) + "/" + std::to_string(unsigned{fields.day()}) +
         "/" + year;
}

TEST_F(CivilTimeTest, BoundsAreTheSundaysOfEveryYear) {
  using namespace std::chrono;
  // On a leap day, which most years do not have.
  host.stand({2024, 2, 29, 23, 59, 0});
  const Ref<Veldrin> veldrin = window();
  for (int number = 1; number <= 9999; ++number) {
    veldrin->SetDaylightSavingsBounds(number);
    ASSERT_EQ(text(veldrin->DSTStart()->Text()), shortDate(year(number) / March / Sunday[2]));
    ASSERT_EQ(text(veldrin->DSTEnd()->Text()), shortDate(year(number) / November / Sunday[1]));
  }
}

TEST_F(CivilTimeTest, BoundsWipeEditsAndTouchNothingElse) {
  person->type("DSTStart", "tomorrow");
  const std::string before = status();
  std::vector<std::string> touched;
  toolkit.onControlChanged = [&](Control& control) { touched.push_back(text(control.Name)); };
  const std::int64_t yields = toolkit.backgroundTasks();
  window()->SetDaylightSavingsBounds(2008);
  EXPECT_EQ(touched, (std::vector<std::string>{"DSTStart", "DSTEnd"}));
  EXPECT_EQ(text(window()->DSTStart()->Text()), "3/9/2008");
  EXPECT_EQ(status(), before);
  // March 1 to 8 and November 1; the passes that find their Sunday leave without a yield.
  EXPECT_EQ(toolkit.backgroundTasks() - yields, 9);
}

TEST_F(CivilTimeTest, DaylightSavingFollowsBoundsAndHemisphere) {
  const std::string_view first = "3/11/2007";
  const std::string_view last = "11/4/2007";
  const CivilMoment July2007{2007, 7, 1, 12, 0, 0};
  const CivilMoment July2008{2008, 7, 1, 12, 0, 0};
  const struct {
    std::string_view start, end;
    CivilMoment at;
    bool inside;
  } rows[] = {{first, last, {2007, 3, 10, 23, 59, 0}, false},
              {first, last, {2007, 3, 11, 0, 0, 0}, true},
              {first, last, {2007, 11, 3, 23, 59, 0}, true},
              {first, last, {2007, 11, 4, 0, 0, 0}, false},
              {first, last, July2008, false},
              {last, first, {2007, 3, 10, 23, 59, 0}, false},
              {last, first, July2007, true},
              {first, first, {2007, 3, 11, 0, 0, 0}, false},
              {"", last, July2007, false},
              {first, "", July2007, false},
              {first, "11/31/2007", July2007, false},
              {last, "3/9/2008", {2008, 1, 1, 0, 0, 0}, true}};
  for (const auto& row : rows) {
    const Ref<Date> date = moment(row.at);
    const double before = date->TotalSeconds();
    window()->DSTStart()->Text(String(row.start));
    window()->DSTEnd()->Text(String(row.end));
    for (const bool downUnder : {false, true}) {
      window()->DownUnderFlag()->Value(downUnder);
      EXPECT_EQ(window()->IsDaylightSavingsTime(date), row.inside != downUnder)
          << text(date->ShortDate()) << ' ' << row.at.hour << ':' << row.at.minute << " from "
          << row.start << " to " << row.end << (downUnder ? ", down under" : "");
    }
    EXPECT_EQ(date->TotalSeconds(), before);
    EXPECT_EQ(text(window()->DSTStart()->Text()), row.start);
  }
}

TEST_F(CivilTimeTest, AnHourIsAddedOnlyUnderDaylightSaving) {
  const Ref<Date> summer = moment({2024, 7, 1, 12, 0, 0});
  const Ref<Date> winter = moment({2024, 1, 1, 12, 0, 0});
  const struct {
    bool on;
    bool downUnder;
    Ref<Date> day;
    double time, expected;
  } rows[] = {{true, false, winter, 6.25, 6.25},  {true, false, summer, 6.25, 7.25},
              {true, false, summer, 23.5, 0.5},   {true, false, summer, 23.0, 0.0},
              {true, false, summer, -3.0, 22.0},  {true, false, summer, 49.0, 26.0},
              {true, true, winter, 6.25, 7.25},   {true, true, summer, 6.25, 6.25},
              {false, false, summer, 23.5, 23.5}, {false, true, winter, 23.5, 23.5}};
  for (const auto& row : rows) {
    window()->DaylightSavings()->Value(row.on);
    window()->DownUnderFlag()->Value(row.downUnder);
    double time = row.time;
    window()->DoDaylightSavings(row.day, time);
    EXPECT_EQ(time, row.expected) << row.time << ' ' << text(row.day->ShortDate());
  }
}

TEST_F(CivilTimeTest, TimesAsText) {
  const struct {
    double x;
    std::string_view shown, digits;
  } rows[] = {
      {0.0, "00:00", "000000"},    {-0.0, "00:00", "000000"},    {0.00833, "00:00", "000000"},
      {0.0084, "00:01", "000100"}, {5.991, "05:59", "055900"},   {6.5, "06:30", "063000"},
      {7.525, "07:32", "073200"},  {11.9999, "12:00", "120000"}, {23.9917, "24:00", "240000"},
      {25.5, "25:30", "253000"},   {100.0, "100:00", "1000000"}, {-1.0, "N/A", "000000"},
      {-1e-9, "N/A", "000000"}};
  for (const auto& row : rows) {
    EXPECT_EQ(text(window()->HHMMFormat(row.x)), row.shown) << row.x;
    EXPECT_EQ(text(window()->HHMMZZ(row.x)), row.digits) << row.x;
  }
}

}  // namespace
}  // namespace veldrin::test
