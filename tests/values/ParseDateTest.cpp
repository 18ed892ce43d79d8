#include <sstream>
#include <string>
#include <string_view>

#include "shell/values/ParseDate.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using enum ShortDateForm::Order;
using ParseDateTest = ValuesTest;

/// The day that `readDate` finds, such as "2008-3-9", or "none".
std::string dayIn(std::string_view text, ShortDateForm::Order order) {
  const auto day = readDate(text, {order, '/'});
  if (!day) return "none";
  return std::to_string(day->year) + "-" + std::to_string(day->month) + "-" +
         std::to_string(day->day);
}

TEST_F(ParseDateTest, EachOrderReadsItsFormWithAnySeparatorAndIsoDates) {
  const struct {
    std::string text, monthFirst, dayFirst, yearFirst;
  } rows[] = {{"3. 9. 2008", "2008-3-9", "2008-9-3", "none"},
              {"03.09.2008. ", "2008-3-9", "2008-9-3", "none"},
              {"2008.03.09.", "none", "none", "2008-3-9"},
              {" \t03 / 09 / 2008\t ", "2008-3-9", "2008-9-3", "none"},
              {"2008-03-09", "2008-3-9", "2008-3-9", "2008-3-9"},
              {"12008-12-31", "12008-12-31", "12008-12-31", "12008-12-31"},
              {"2008-03/09", "none", "none", "2008-3-9"},
              {"3/9/08", "2008-3-9", "2008-9-3", "none"},
              {"1/2/68", "2068-1-2", "2068-2-1", "none"},
              {"1/2/69", "1969-1-2", "1969-2-1", "none"},
              {"69/1/2", "none", "none", "1969-1-2"},
              {"2/29/2008", "2008-2-29", "none", "none"},
              {"2007-02-29", "none", "none", "none"},
              {"2000-02-29", "2000-2-29", "2000-2-29", "2000-2-29"},
              {"4/4/2147483648", "none", "none", "none"}};
  for (const auto& row : rows) {
    EXPECT_EQ(dayIn(row.text, MonthDayYear), row.monthFirst) << row.text;
    EXPECT_EQ(dayIn(row.text, DayMonthYear), row.dayFirst) << row.text;
    EXPECT_EQ(dayIn(row.text, YearMonthDay), row.yearFirst) << row.text;
  }
}

TEST_F(ParseDateTest, NoOrderReadsATextThatIsNoDate) {
  using namespace std::string_literals;
  std::istringstream texts(
      "|  |/|4|4/|4/4|4/4/|//|4//2008|4/4/2008/|4/4/-|-/4/2008|4/-/2008|4/4/2008/4|4/4/2008x|"
      "x4/4/2008|4x4/2008|4,4,2008|4/4/8|4/4/208|4/4/-8|4/4/--0008|004/4/2008|4/004/2008|"
      "0/4/2008|4/0/2008|4/4/200:|:/4/2008|-4/4/2008|4/-4/2008|+4/4/2008|4/4/+2008|32/32/"
      "2008|20080404|"
      "4/4/18446744073709553624|99999999999999999999/4/4|April 4, 2008|4/4/2008 12:00|2008-W14-5|"
      "4/4/2008\0|4/4/2008\n|4/4/2008..|4/4/2008 .|.4/4/2008|2008--04-04|0x4/4/2008|4e0/4/2008|\xEF\xBC\x94/4/2008"s);
  for (std::string text; std::getline(texts, text, '|');) {
    for (const auto order : {MonthDayYear, DayMonthYear, YearMonthDay, YearDayMonth}) {
      EXPECT_EQ(dayIn(text, order), "none") << "\"" << text << "\" in order " << int(order);
    }
  }
}

TEST_F(ParseDateTest, SetsTheDateToTheStartOfTheDayOrLeavesItUnchanged) {
  Ref<Date> date = New<Date>();
  const Ref<Date> same = date;
  host.form = {DayMonthYear, '.'};
  ASSERT_TRUE(ParseDate("9.3.2008"_s, date));
  EXPECT_EQ(date.get(), same.get());
  EXPECT_EQ(text(date->ShortDate()), "9.3.2008");
  EXPECT_EQ(date->TotalSeconds(), 3287865600.0);
  Ref<Date> nil;
  EXPECT_FALSE(ParseDate("31.2.2008"_s, date) || ParseDate("31.2.2008"_s, nil));
  EXPECT_TRUE(date == same && date->TotalSeconds() == 3287865600.0 && nil == nullptr);
  ASSERT_TRUE(ParseDate("2008-03-09"_s, nil));
  EXPECT_EQ(date->Operator_Compare(nil), 0);
}

}  // namespace
}  // namespace veldrin::test
