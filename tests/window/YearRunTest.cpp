#include <string>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using YearRunTest = WindowTest;

TEST_F(YearRunTest, WritesTheGoldenDocuments) {
  const struct {
    std::string file, year, latitude, longitude, zone;
    bool downUnder;
  } rows[] = {{"default-2008.ics", "2008", "47.5", "-122.5", "-8", false},
              {"polar-2024.ics", "2024", "78.22", "15.65", "1", false},
              {"southern-2023.ics", "2023", "-33.87", "151.21", "10", true},
              {"year-999.ics", "999", "47.5", "-122.5", "-8", false}};
  for (const auto& row : rows) {
    fillIn(row.year, row.latitude, row.longitude, row.zone);
    person->tick("DownUnderFlag", row.downUnder);
    EXPECT_EQ(firstDifference(generate(), golden(row.file)), "") << row.file;
  }
}

TEST_F(YearRunTest, TheMomentOfThePressMakesNoDifference) {
  fillIn("2008", "47.5", "-122.5", "-8");
  // Central Europe's clock, which changes twice within the year that is written.
  const auto europe = [](std::int64_t at) {
    const std::int64_t day = at / 86400 - dayNumber(2008, 1, 1);
    return day >= 89 && day < 299 ? 7200 : 3600;
  };
  for (const std::int32_t hour : {0, 2, 23}) {
    host.stand({2008, 3, 30, hour, hour == 23 ? 59 : 0, 0});
    EXPECT_EQ(firstDifference(generate(), golden("default-2008.ics")), "") << hour;
    host.zone = europe;
    EXPECT_EQ(firstDifference(generate(), golden("default-2008.ics")), "") << hour;
  }
}

TEST_F(YearRunTest, TouchesNoControlAndNoDayAndYieldsOnceAPass) {
  // No day at the pole has both events, so each is searched to its end: 12 passes and its own.
  fillIn("2008", "90", "0", "0");
  // A press of a button that comes from a field leaves the field first.
  person->tick("DownUnderFlag", true);
  window()->userTurnedTo(false);  // an active one would enable its menus around the dialog
  const Ref<Date> day = window()->statusDate;
  const double seconds = day->TotalSeconds();
  const std::int64_t objects = liveObjectCount();
  const std::int64_t yields = toolkit.backgroundTasks;
  std::string touched;
  toolkit.onControlChanged = [&](Control& control) { touched += text(control.Name); };
  EXPECT_NE(generate(), "");
  EXPECT_EQ(touched, "");
  EXPECT_EQ(window()->statusDate, day);
  EXPECT_EQ(day->TotalSeconds(), seconds);
  EXPECT_TRUE(toolkit.messages.empty());
  EXPECT_EQ(liveObjectCount(), objects);
  EXPECT_EQ(toolkit.backgroundTasks - yields, 365 * (12 + 1));
}

TEST_F(YearRunTest, AnyRowOfTheChooserIsAYear) {
  const struct {
    std::string row, year, start;
  } rows[] = {{"-5", "-5", "3/12/-0005"},
              {"abc", "0", "3/12/0000"},
              {"2008.9", "2008", "3/9/2008"},
              {"99999999999", "2147483647", "3/10/2147483647"},
              {"-99999999999", "-2147483648", "3/9/-2147483648"},
              {std::string(1 << 20, '9'), "2147483647", "3/10/2147483647"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.row.substr(0, 20));
    choose(row.row);
    EXPECT_EQ(person->shown("DSTStart"), row.start);
    const std::string document = generate();
    EXPECT_NE(document.find("\r\nDTSTART:" + row.year + "0102T"), std::string::npos);
    EXPECT_NE(document.find("\r\nDTSTART:" + row.year + "1231T"), std::string::npos);
    EXPECT_TRUE(document.ends_with("\r\nEND:VCALENDAR\r\n"));
  }
}

}  // namespace
}  // namespace veldrin::test
