#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

class YearRunTest : public WindowTest {
 protected:
  void fillIn(std::string_view year, std::string_view latitude, std::string_view longitude,
              std::string_view zone) const {
    choose(year);
    type("Latitude", latitude);
    type("Longitude", longitude);
    type("TimeZone", zone);
  }
  /// A press of a button that comes from a field leaves the field first.
  void leaveTheFields() const { person->tick("DownUnderFlag", !person->isTicked("DownUnderFlag")); }
  void defaultPlaceIn2008() const { fillIn("2008", "47.5", "-122.5", "-8"); }
};

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
  defaultPlaceIn2008();
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

TEST_F(YearRunTest, TouchesNoControlAndNoDay) {
  defaultPlaceIn2008();
  leaveTheFields();
  const Ref<Date> day = window()->statusDate;
  const double seconds = day->TotalSeconds();
  const std::int64_t objects = liveObjectCount();
  std::string touched;
  toolkit.onControlChanged = [&](Control& control) { touched += text(control.Name); };
  EXPECT_NE(generate(), "");
  EXPECT_EQ(touched, "");
  EXPECT_EQ(window()->statusDate, day);
  EXPECT_EQ(day->TotalSeconds(), seconds);
  EXPECT_TRUE(toolkit.messages().empty());
  EXPECT_EQ(liveObjectCount(), objects);
}

TEST_F(YearRunTest, YieldsOnceAPass) {
  // No day at the pole has both events, so each is searched to its end: 12 passes and its own.
  fillIn("2008", "90", "0", "0");
  leaveTheFields();
  window()->userTurnedTo(false);  // an active one would enable its menus around the dialog
  const std::int64_t before = toolkit.backgroundTasks();
  EXPECT_NE(generate(), "");
  EXPECT_EQ(toolkit.backgroundTasks() - before, 365 * (12 + 1));
}

TEST_F(YearRunTest, CancellingWritesNothingAndSaysNothing) {
  leaveTheFields();
  window()->userTurnedTo(false);
  const std::int64_t objects = liveObjectCount();
  const std::int64_t yields = toolkit.backgroundTasks();
  toolkit.saveAnswers.emplace_back(nullptr);
  person->press("GenerateButton");
  EXPECT_TRUE(toolkit.saveAnswers.empty());
  EXPECT_TRUE(toolkit.messages().empty());
  EXPECT_EQ(toolkit.backgroundTasks(), yields);
  EXPECT_EQ(liveObjectCount(), objects);
}

TEST_F(YearRunTest, AFileThatCannotBeMadeIsTold) {
  for (const std::int32_t error : {EACCES, ENOSPC, EISDIR, ENAMETOOLONG}) {
    const Ref<MemoryItem> item = New<MemoryItem>();
    *item->content = "what was there";
    item->errorOfCreate = error;
    toolkit.saveAnswers.emplace_back(item);
    const std::int64_t objects = liveObjectCount();
    const std::size_t told = toolkit.messages().size();
    person->press("GenerateButton");
    ASSERT_EQ(toolkit.messages().size(), told + 1);
    EXPECT_EQ(text(toolkit.messages().back()), "Cannot write to /memory/item.ics");
    EXPECT_EQ(*item->content, "what was there");
    EXPECT_EQ(item->referenceCount(), 1);
    EXPECT_EQ(liveObjectCount(), objects);
  }
}

TEST_F(YearRunTest, AFullDiskRaisesAndKeepsTheLinesBefore) {
  defaultPlaceIn2008();
  const std::string whole = golden("default-2008.ics");
  for (const int lines : {0, 1, 6, 7, 1000, 2926}) {
    SCOPED_TRACE(lines);
    const Ref<MemoryItem> item = New<MemoryItem>();
    item->linesUntilFull = lines;
    toolkit.saveAnswers.emplace_back(item);
    const std::int64_t objects = liveObjectCount();
    toolkit.job = [&] { person->press("GenerateButton"); };
    try {
      toolkit.run();
      ADD_FAILURE() << "nothing was raised";
    } catch (const Raised& raised) {
      EXPECT_EQ(text(raised.exception->classRecord()->name), "IOException");
      EXPECT_EQ(raised.exception->ErrorNumber, ENOSPC);
    }
    EXPECT_TRUE(whole.starts_with(*item->content));
    EXPECT_EQ(std::ranges::count(*item->content, '\n'), lines);
    EXPECT_EQ(item->referenceCount(), 1);
    EXPECT_EQ(liveObjectCount(), objects);
  }
  EXPECT_TRUE(toolkit.messages().empty());
  EXPECT_EQ(firstDifference(generate(), whole), "");
}

/// Texts that a person might put into a field.
const std::string HostileTexts[] = {"",
                                    "-",
                                    "nan",
                                    "inf",
                                    "0x50",
                                    "4,5",
                                    "1e-999",
                                    "-1e308",
                                    "1e999",
                                    std::string(1 << 20, '9'),
                                    "\xff\xfe\r\n" + std::string(1, '\0') + "7"};

TEST_F(YearRunTest, AnyTextInTheFieldsMakesAWholeDocument) {
  choose("2007");
  for (const std::string& text : HostileTexts) {
    // A text is read afresh every day, so a megabyte in one field is enough.
    const std::string shortened = text.substr(0, 1000);
    for (const char* const field : {"Latitude", "Longitude", "DSTStart"}) {
      person->type(field, shortened);
    }
    person->type("TimeZone", text);
    const std::string document = generate();
    EXPECT_NE(document.find("DTSTART:20071231T"), std::string::npos) << shortened;
    EXPECT_TRUE(document.ends_with("\r\nEND:VCALENDAR\r\n")) << shortened;
  }
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
