#include "shell/values/Date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>

#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using DateTest = ValuesTest;
using Fields = CivilMoment;

constexpr Fields FirstMoment = {Smallest, 1, 1, 0, 0, 0};
constexpr Fields LastMoment = {Largest, 12, 31, 23, 59, 59};

Fields fieldsOf(const Date& date) {
  return {date.Year(), date.Month(), date.Day(), date.Hour(), date.Minute(), date.Second()};
}

Ref<Date> dateOf(const Fields& fields) {
  const auto [year, month, day, hour, minute, second] = fields;
  Ref<Date> date = New<Date>();
  date->Constructor(year, month, day, hour, minute, second);
  return date;
}

/// The ISO week by the C library.
std::int32_t isoWeekOf(std::int32_t year, std::int32_t dayOfYear, std::int32_t dayOfWeek) {
  tm fields{};
  fields.tm_year = year - 1900;
  fields.tm_yday = dayOfYear - 1;
  fields.tm_wday = dayOfWeek - 1;
  std::array<char, 3> week{};
  std::strftime(week.data(), week.size(), "%V", &fields);
  return (week[0] - '0') * 10 + week[1] - '0';
}

TEST_F(DateTest, NewDateKeepsTheMomentOfItsCreation) {
  host.setClock({2024, 2, 29, 23, 59, 58}, 5.75);
  const Ref<Date> read = New<Date>();
  const Ref<Date> written = New<Date>();
  host.moment += 3600;
  EXPECT_EQ(fieldsOf(*read), (Fields{2024, 2, 29, 23, 59, 58}));
  written->Day(1);
  EXPECT_EQ(fieldsOf(*written), (Fields{2024, 2, 1, 23, 59, 58}));
}

TEST_F(DateTest, AStepOfADayIsTheNextOrThePreviousDay) {
  using std::chrono::days, std::chrono::sys_days, std::chrono::year;
  constexpr sys_days First = year(-400) / 1 / 1;
  constexpr sys_days Last = year(2500) / 12 / 31;
  // The UTC offset changes at every noon.
  host.zone = [](std::int64_t at) { return (at + 43200) / 86400 % 2 * 3600; };
  const Ref<Date> date = dateOf({-400, 1, 1, 23, 59, 58});
  for (sys_days day = First; day <= Last; day += days(1)) {
    const std::chrono::year_month_day expected(day);
    const auto month = static_cast<std::int32_t>(unsigned{expected.month()});
    const auto dayOfMonth = static_cast<std::int32_t>(unsigned{expected.day()});
    ASSERT_EQ(fieldsOf(*date),
              (Fields{static_cast<int>(expected.year()), month, dayOfMonth, 23, 59, 58}));
    ASSERT_EQ(unsigned(date->DayOfWeek() - 1), std::chrono::weekday(day).c_encoding())
        << testing::PrintToString(fieldsOf(*date));
    const auto dayOfYear =
        static_cast<std::int32_t>((day - sys_days(expected.year() / 1 / 1)).count()) + 1;
    ASSERT_EQ(date->DayOfYear(), dayOfYear);
    ASSERT_EQ(date->WeekOfYear(),
              isoWeekOf(static_cast<int>(expected.year()), dayOfYear, date->DayOfWeek()));
    for (const double step : {1.0, 1.0, -1.0}) {
      date->TotalSeconds(date->TotalSeconds() + step * 86400.0);
    }
  }
}

TEST_F(DateTest, FieldOutOfItsRangeCarriesOver) {
  using Setter = void (Date::*)(std::int32_t);
  constexpr Setter Year = &Date::Year;
  constexpr Setter Month = &Date::Month;
  constexpr Setter Day = &Date::Day;
  const Fields start = {2008, 1, 1, 0, 0, 0};
  const struct {
    const char* what;
    Fields before;
    Setter set;
    std::int32_t value;
    Fields after;
  } rows[] = {
      {"February 31", {2008, 1, 31, 1, 2, 3}, Month, 2, {2008, 3, 2, 1, 2, 3}},
      {"February 29 of a common year", {2008, 2, 29, 1, 2, 3}, Year, 2009, {2009, 3, 1, 1, 2, 3}},
      {"month 13", {2008, 3, 9, 1, 2, 3}, Month, 13, {2009, 1, 9, 1, 2, 3}},
      {"minute 1440", {2008, 12, 31, 1, 2, 3}, &Date::Minute, 1440, {2009, 1, 1, 1, 0, 3}},
      {"hour -1", {2008, 3, 1, 1, 2, 3}, &Date::Hour, -1, {2008, 2, 29, 23, 2, 3}},
      {"smallest year", start, Year, Smallest, FirstMoment},
      {"largest month", start, Month, Largest, {178958978, 7, 1, 0, 0, 0}},
      {"smallest day", start, Day, Smallest, {-5877603, 6, 21, 0, 0, 0}},
      {"months after the last moment", LastMoment, Month, Largest, LastMoment},
      {"a day before the first moment", FirstMoment, Day, 0, FirstMoment},
      {"a second before the first moment", FirstMoment, &Date::Second, -1, FirstMoment}};
  for (const auto& row : rows) {
    const Ref<Date> date = dateOf(row.before);
    ASSERT_EQ(fieldsOf(*date), row.before) << row.what;
    ((*date).*row.set)(row.value);
    EXPECT_EQ(fieldsOf(*date), row.after) << row.what;
  }
}

TEST_F(DateTest, TotalSecondsMoveTheWholeDate) {
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  constexpr double Exact = 0x1p53;
  const struct {
    double seconds;
    Fields fields;
  } rows[] = {{59.9, {1904, 1, 1, 0, 0, 59}},
              {-1.0, {1903, 12, 31, 23, 59, 59}},
              {3287865599.0, {2008, 3, 8, 23, 59, 59}},
              {Exact - 1.0, {285428685, 11, 10, 7, 36, 31}},
              {-Exact + 1.0, {-285424878, 2, 19, 16, 23, 29}},
              {1e300, LastMoment},
              {-Infinity, FirstMoment},
              {2082844800.75, {1970, 1, 1, 0, 0, 0}},
              {std::nan(""), {1970, 1, 1, 0, 0, 0}}};
  const Ref<Date> date = New<Date>();
  for (const auto& row : rows) {
    date->TotalSeconds(row.seconds);
    EXPECT_EQ(fieldsOf(*date), row.fields) << row.seconds;
    if (std::fabs(row.seconds) < Exact) {
      EXPECT_EQ(date->TotalSeconds(), std::floor(row.seconds));
    }
  }
}

TEST_F(DateTest, FieldsOfTheConstructorReplaceThoseOfToday) {
  const struct {
    Fields given, expected;
  } rows[] = {{{2023, 2, 30, 25, -1, 60}, {2023, 3, 3, 1, 0, 0}},
              {{2023, 0, 0, 0, 0, 0}, {2023, 1, 1, 0, 0, 0}},
              {{2023, -3, 31, 0, 0, 0}, {2023, 1, 31, 0, 0, 0}}};
  host.setClock({2024, 3, 31, 23, 59, 58}, 2.0);
  for (const auto& row : rows) {
    const auto [year, month, day, hour, minute, second] = row.given;
    const Ref<Date> zoned = New<Date>();
    zoned->Constructor(year, month, day, hour, minute, second, -3.5);
    const Ref<Date> plain = New<Date>();
    plain->Constructor(year, month, day, hour, minute, second);
    const Ref<Date> copy = New<Date>();
    copy->Constructor(zoned);
    EXPECT_EQ(fieldsOf(*zoned), row.expected);
    EXPECT_EQ(fieldsOf(*plain), row.expected);
    EXPECT_EQ(plain->GMTOffset(), 2.0);
    EXPECT_TRUE(copy->Operator_Compare(plain) == 0 && copy->GMTOffset() == -3.5);
  }
  EXPECT_EQ(raisedBy([] { New<Date>()->Constructor(nullptr); }), "NilObjectException");
}

TEST_F(DateTest, ComparesMomentsAndNeverEqualsNil) {
  const Ref<Date> date = dateOf({2008, 3, 9, 12, 0, 0});
  EXPECT_NE(date->Operator_Compare(nullptr), 0);
  EXPECT_EQ(date->Operator_Compare(dateOf({2008, 3, 9, 12, 0, 0})), 0);
  EXPECT_EQ(date->Operator_Compare(dateOf({2008, 3, 9, 11, 59, 59})), 1);
  EXPECT_EQ(date->Operator_Compare(dateOf({2008, 3, 9, 12, 0, 1})), -1);
}

TEST_F(DateTest, OffsetIsThatOfTheInstantUntilAFieldIsWritten) {
  constexpr std::int64_t ClocksGoBack = 1730624400;  // 2024-11-03 09:00 UTC, from 02:00 to 01:00
  host.zone = [](std::int64_t at) { return (at >= ClocksGoBack ? -8 : -7) * std::int64_t{3600}; };
  const struct {
    std::int64_t moment;
    double offset;
  } rows[] = {{ClocksGoBack - 1800, -7.0}, {ClocksGoBack + 1800, -8.0}};
  for (const auto& row : rows) {
    host.moment = row.moment;
    const Ref<Date> date = New<Date>();
    EXPECT_EQ(date->GMTOffset(), row.offset);
    EXPECT_EQ(fieldsOf(*date), (Fields{2024, 11, 3, 1, 30, 0}));
    const Ref<Date> copy = New<Date>();
    copy->Constructor(date);
    EXPECT_EQ(copy->GMTOffset(), row.offset);
    date->Minute(30);
    EXPECT_EQ(date->GMTOffset(), -7.0);
    date->Day(4);
    EXPECT_EQ(date->GMTOffset(), -8.0);
    for (const double ignored : {std::nan(""), std::numeric_limits<double>::infinity()}) {
      copy->GMTOffset(5.75);
      copy->GMTOffset(ignored);
    }
    copy->Month(7);
    EXPECT_EQ(copy->GMTOffset(), 5.75);
    EXPECT_EQ(fieldsOf(*copy), (Fields{2024, 7, 3, 1, 30, 0}));
  }
}

TEST_F(DateTest, TextsHaveTheFormsOfTheHost) {
  const Ref<Date> date = dateOf({2008, 3, 9, 0, 0, 0});
  EXPECT_EQ(text(date->LongDate() + "|"_s + date->AbbreviatedDate()), "0 of 9|1 of 9");
  EXPECT_EQ(text(date->ShortTime() + "|"_s + date->LongTime()), "2 of 9|3 of 9");
  using enum ShortDateForm::Order;
  const struct {
    ShortDateForm form;
    Fields fields;
    const char* text;
  } rows[] = {{{MonthDayYear, '/'}, {7, 3, 9, 0, 0, 0}, "3/9/0007"},
              {{DayMonthYear, '.'}, {2008, 3, 9, 0, 0, 0}, "9.3.2008"},
              {{YearMonthDay, '-'}, {-5, 11, 30, 0, 0, 0}, "-0005-11-30"},
              {{YearDayMonth, '.'}, {2024, 6, 21, 0, 0, 0}, "2024.21.6"},
              {{YearMonthDay, '/'}, {Smallest, 1, 1, 0, 0, 0}, "-2147483648/1/1"}};
  for (const auto& row : rows) {
    host.form = row.form;
    EXPECT_EQ(text(dateOf(row.fields)->ShortDate()), row.text);
  }
}

}  // namespace
}  // namespace veldrin::test
