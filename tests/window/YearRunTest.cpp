#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Documents.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using testing::Each;
using testing::MatchesRegex;
using YearRunTest = WindowTest;

/// All days from January 2 to December 31, such as "20080309".
std::vector<std::string> numbersOf(int year) {
  using namespace std::chrono;
  std::vector<std::string> numbers;
  for (sys_days day = std::chrono::year(year) / January / 2;; day += days(1)) {
    const year_month_day date(day);
    if (int(date.year()) != year) return numbers;
    const unsigned number = unsigned(date.month()) * 100 + unsigned(date.day());
    numbers.push_back(std::to_string(year * 10000 + static_cast<int>(number)));
  }
}

TEST_F(YearRunTest, ADocumentHasEveryDayAndTheReferenceBytes) {
  std::istringstream file(golden("days.txt"));
  std::vector<std::string> days;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    if (!line.starts_with("run ")) {
      const auto sameDay = [&](const std::string& day) {
        return day.substr(0, day.find(' ')) == line.substr(0, line.find(' '));
      };
      const auto day = std::ranges::find_if(days, sameDay);
      EXPECT_EQ(day == days.end() ? "" : *day, line);
      continue;
    }
    std::istringstream words(line.substr(4));
    std::array<std::string, 8> row;
    for (std::string& word : row) words >> word;
    const auto& [name, year, latitude, longitude, zone, hemisphere, size, checksum] = row;
    SCOPED_TRACE(name);
    fillIn(year, latitude, longitude, zone);
    person->tick("DownUnderFlag", hemisphere == "south");
    const std::string document = generate();
    days = daysOf(document);
    EXPECT_EQ(firstDifference(document, documentOf(days)), "");
    EXPECT_THAT(days,
                Each(MatchesRegex("[0-9]+ (No sunrise or sunset|Sunrise at [0-9]{2}:[0-9]{2}, "
                                  "Sunset at [0-9]{2}:[0-9]{2})")));
    std::vector<std::string> numbers(days.size());
    std::ranges::transform(days, numbers.begin(),
                           [](const std::string& day) { return day.substr(0, day.find(' ')); });
    EXPECT_EQ(numbers, numbersOf(std::stoi(year)));
    EXPECT_EQ(std::to_string(document.size()), size);
    EXPECT_EQ(checksumOf(document), checksum);
  }
}

TEST_F(YearRunTest, TheTimeOfThePressDoesNotMatter) {
  fillIn("2008", "47.5", "-122.5", "-8");
  // Central Europe: the offset changes twice in the year.
  const auto europe = [](std::int64_t at) {
    const std::int64_t day = at / 86400 - dayNumber(2008, 1, 1);
    return day >= 89 && day < 299 ? 7200 : 3600;
  };
  for (const std::int32_t hour : {0, 2, 23}) {
    host.setClock({2008, 3, 30, hour, hour == 23 ? 59 : 0, 0});
    EXPECT_EQ(firstDifference(generate(), golden("default-2008.ics")), "") << hour;
    host.zone = europe;
    EXPECT_EQ(firstDifference(generate(), golden("default-2008.ics")), "") << hour;
  }
}

TEST_F(YearRunTest, ChangesNoControlOrDayAndYieldsInEachPass) {
  // At the pole no day has both events: 12 passes of the search each day, and one of the day loop.
  fillIn("2008", "90", "0", "0");
  // Takes the focus from the field before the button is pressed.
  person->tick("DownUnderFlag", true);
  window()->setActive(false);  // an active window would refresh its menus
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

TEST_F(YearRunTest, AnyTextOfARowGivesAYear) {
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
