#include <array>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "shell/host/DatePattern.h"
#include "shell/host/SystemHost.h"
#include "shell/values/ParseDate.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using enum ShortDateForm::Order;

/// Sets an environment variable, and restores it at destruction.
class EnvironmentGuard {
 public:
  EnvironmentGuard(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~EnvironmentGuard() {
    before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_);
    ::tzset();
  }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(SystemHostTest, ConvertsMomentsToLocalTimeInEachZone) {
  const struct {
    const char* zone;
    std::int64_t moment;  // seconds since 1970-01-01 UTC
    CivilMoment local;
    double hours;         // the UTC offset at the moment
    double hoursOfLocal;  // the UTC offset of `local`; the first one if it is repeated
  } rows[] = {
      {"UTC", -1, {1969, 12, 31, 23, 59, 59}, 0.0, 0.0},
      {"Asia/Kolkata", 1205020800, {2008, 3, 9, 5, 30, 0}, 5.5, 5.5},
      {"America/Los_Angeles", 1710064800, {2024, 3, 10, 3, 0, 0}, -7.0, -7.0},
      {"America/Los_Angeles", 1730620800, {2024, 11, 3, 1, 0, 0}, -7.0, -7.0},
      {"America/Los_Angeles", 1730624400, {2024, 11, 3, 1, 0, 0}, -8.0, -7.0},
      {"America/Los_Angeles", 1730628000, {2024, 11, 3, 2, 0, 0}, -8.0, -8.0},
      {"America/Los_Angeles", 4118151600, {2100, 7, 1, 12, 0, 0}, -7.0, -7.0},
      {"Australia/Lord_Howe", 1712415600, {2024, 4, 7, 1, 30, 0}, 10.5, 11.0},
      {"Pacific/Apia", 1325239199, {2011, 12, 29, 23, 59, 59}, -10.0, -10.0},
      {"Pacific/Apia", 1325239200, {2011, 12, 31, 0, 0, 0}, 14.0, 14.0},
      // The zone counts 27 leap seconds. A leap second is shown as the second before it.
      {"right/America/Los_Angeles", 1730624427, {2024, 11, 3, 1, 0, 0}, -8.0, -7.0},
      {"right/America/Los_Angeles", 1483228826, {2016, 12, 31, 15, 59, 59}, -8.0, -8.0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.zone) + " at " + std::to_string(row.moment));
    // Newer Debian releases have this zone in a separate package.
    if (row.zone == std::string_view("right/America/Los_Angeles") &&
        !std::filesystem::exists(std::string("/usr/share/zoneinfo/") + row.zone)) {
      continue;
    }
    const EnvironmentGuard zone("TZ", row.zone);
    const SystemHost host;
    EXPECT_EQ(host.localTime(row.moment), row.local);
    EXPECT_EQ(host.offsetAt(row.moment), row.hours);
    EXPECT_EQ(host.gmtOffset(row.local), row.hoursOfLocal);
  }
}

TEST(SystemHostTest, ExtremeAndSkippedTimesHaveAnOffset) {
  const EnvironmentGuard zone("TZ", "Etc/GMT-14");
  const SystemHost host;
  EXPECT_EQ(host.gmtOffset({INT32_MAX, 12, 31, 23, 59, 59}), 0.0);
  EXPECT_EQ(host.gmtOffset({INT32_MIN, 1, 1, 0, 0, 0}), 0.0);
  EXPECT_EQ(host.gmtOffset({-4712, 1, 1, 12, 0, 0}), 14.0);
  for (const std::int64_t moment : {INT64_MIN, INT64_MAX}) {
    const std::int32_t month = host.localTime(moment).month;
    EXPECT_TRUE(month >= 1 && month <= 12) << moment;
    EXPECT_EQ(host.offsetAt(moment), 0.0);
  }
  // A skipped local time has the offset before the change.
  const EnvironmentGuard apia("TZ", "Pacific/Apia");
  EXPECT_EQ(host.gmtOffset({2011, 12, 30, 12, 0, 0}), -10.0);
  const EnvironmentGuard pacific("TZ", "America/Los_Angeles");
  EXPECT_EQ(host.gmtOffset({2024, 3, 10, 2, 30, 0}), -8.0);
}

TEST(DatePatternTest, ReadsTheShortFormOfUnusualPatterns) {
  for (const char* const pattern : {"%%d.%%m.%%Y", "%d.%m", "%d.%m.%", ""}) {
    EXPECT_EQ(shortDateFormOf(pattern), (ShortDateForm{MonthDayYear, '/'})) << pattern;
  }
  EXPECT_EQ(shortDateFormOf("%d %m %Y"), (ShortDateForm{DayMonthYear, '/'}));
  EXPECT_EQ(shortDateFormOf("%a. %d/%m/%Y"), (ShortDateForm{DayMonthYear, '/'}));
}

using LocaleTest = ValuesTest;

TEST_F(LocaleTest, ReadsDatesOfVeldrinAndOfTheLocale) {
  const struct {
    const char* locale;
    const char* text;
    bool isNumeric;  // whether the locale writes %x in plain numbers
  } rows[] = {
      {"en_US", "6/1/2024", true},   {"hi_IN", "1/6/2024", true},  {"bg_BG", "1.6.2024", true},
      {"sr_RS", "1.6.2024", true},   {"lv_LV", "2024.6.1", true},  {"sv_SE", "2024-6-1", true},
      {"ne_NP", "2024/6/1", true},   {"nl_NL", "1-6-2024", true},  {"ce_RU", "2024.1.6", true},
      {"th_TH", "1/6/2024", false},  {"nb_NO", "1.6.2024", false}, {"ar_EG", "1/6/2024", false},
      {"en_HK", "6/1/2024", false},  {"fa_IR", "2024/6/1", false}, {"zh_CN", "2024/6/1", false},
      {"no_SUCH", "6/1/2024", false}};
  tm day{};
  day.tm_year = 2024 - 1900;
  day.tm_mon = 6 - 1;
  day.tm_mday = 1;
  constexpr CivilDay Day{2024, 6, 1};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.locale);
    const EnvironmentGuard setting("LC_ALL", (std::string(row.locale) + ".UTF-8").c_str());
    host.form = SystemHost().shortDateForm();
    const Ref<Date> date = New<Date>();
    date->Constructor(2024, 6, 1, 0, 0, 0);
    EXPECT_EQ(text(date->ShortDate()), row.text)
        << "make the locale with localedef, and set LOCPATH to its parent folder";
    EXPECT_EQ(readDate(row.text, host.form), Day);
    if (!row.isNumeric) continue;
    std::array<char, 100> localeDate{};
    const locale_t locale = ::newlocale(LC_TIME_MASK, "", nullptr);
    ASSERT_NE(locale, nullptr);
    ::strftime_l(localeDate.data(), localeDate.size(), "%x", &day, locale);
    ::freelocale(locale);
    EXPECT_EQ(readDate(localeDate.data(), host.form), Day) << localeDate.data();
  }
}

TEST(SystemHostTest, FormatsDatesAndTimesByTheLocale) {
  constexpr CivilMoment Autumn{2026, 11, 22, 16, 5, 9};
  const struct {
    const char* locale;
    CivilMoment moment;
    const char *dates, *times;
  } rows[] = {
      {"C", Autumn, "Sunday, November 22, 2026|Sun, Nov 22, 2026", "16:05|16:05:09"},
      {"no_SUCH.UTF-8", {7, 3, 9, 0, 0, 0}, "Friday, March 9, 7|Fri, Mar 9, 7", "00:00|00:00:00"},
      {"de_DE.UTF-8", Autumn, "Sonntag, 22. November 2026|So, 22. Nov 2026", "16:05|16:05:09"},
      {"de_DE.UTF-8",
       {INT32_MIN, 3, 1, 0, 0, 0},
       "Samstag, 1. M\u00E4rz -2147481748|Sa, 1. M\u00E4r -2147481748",
       "00:00|00:00:00"},
      {"fr_FR.ISO-8859-1",
       {2026, 12, 1, 16, 5, 9},
       "mardi, 1 d\u00E9cembre 2026|mar., 1 d\u00E9c. 2026",
       "16:05|16:05:09"},
      {"en_US.UTF-8", Autumn, "Sunday, November 22, 2026|Sun, Nov 22, 2026",
       "04:05 PM|04:05:09 PM"},
      // The pattern has %p, but the locale has no texts for AM and PM.
      {"ms_MY.UTF-8", Autumn, "Ahad, 22 November 2026|Ahd, 22 Nov 2026", "04:05|04:05:09"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.locale);
    const EnvironmentGuard setting("LC_ALL", row.locale);
    const SystemHost host;
    const auto both = [&](DateText first, DateText second) {
      return host.text(first, row.moment) + "|" + host.text(second, row.moment);
    };
    EXPECT_EQ(both(DateText::LongDate, DateText::AbbreviatedDate), row.dates);
    EXPECT_EQ(both(DateText::ShortTime, DateText::LongTime), row.times);
  }
}

TEST(DatePatternTest, KeepsTheOrderAndTheWordsOfTheLocale) {
  const struct {
    DatePatterns patterns;
    const char *longDate, *abbreviatedDate;
  } dates[] = {
      {{.program = "%A, %Y. gada %e. %B, %H:%M:%S %Z"},
       "%A, %Y. gada %-d. %B",
       "%a, %Y. gada %-d. %b"},
      {{.program = "%Y. %b. %-e., %A, %T %Z"}, "%Y. %B %-d., %A", "%Y. %b. %-d., %a"},
      {{.program = "%a %-d.%-m.%Y %H.%M", .dateAndTime = "%a %e. %Bta %Y %H.%M"},
       "%A, %-d. %Bta %Y",
       "%a, %-d. %Bta %Y"},
      {{.program = "%a\u00A0%-d.\u00A0%B\u00A0%Y,\u00A0%H:%M"}, "%A, %-d. %B %Y", "%a, %-d. %b %Y"},
      {{.program = "%y-%m-%d %T %Z", .date = "%a, %Y.eko %bren %da"},
       "%A, %Y.eko %Bren %-da",
       "%a, %Y.eko %Bren %-da"},
      {{.dateAndTime = "%x (%a) %r", .date = "%Y\uB144 %m\uC6D4 %d\uC77C"},
       "%Y\uB144 %-m\uC6D4 %-d\uC77C (%A)",
       "%Y\uB144 %-m\uC6D4 %-d\uC77C (%a)"},
      {{.program = "%a %d. %b kl. %H.%M %z %Y"}, "%A, %-d. %B %Y", "%a, %-d. %b %Y"},
      {{.program = "%d %b %Ey"}, "%A, %-d %B %Ey", "%a, %-d %b %Ey"},
      {{.dateAndTime = "%x (%a) %X", .date = "%e.%m.%Y"}, "%A, %-d %B %Y", "%a, %-d %b %Y"},
      {{.date = "%F"}, "%A, %Y %B %-d", "%a, %Y %b %-d"},
      {{}, "%A, %B %-d, %Y", "%a, %b %-d, %Y"}};
  for (const auto& row : dates) {
    EXPECT_EQ(patternOf(DateText::LongDate, row.patterns), row.longDate);
    EXPECT_EQ(patternOf(DateText::AbbreviatedDate, row.patterns), row.abbreviatedDate);
  }
  const struct {
    DatePatterns patterns;
    const char *shortTime, *longTime;
  } times[] = {
      {{.time = "%T"}, "%H:%M", "%H:%M:%S"},
      {{.time = "%r", .twelveHours = ""}, "%I:%M %p", "%I:%M:%S %p"},
      {{.time = "%Z %I:%M:%S %p"}, "%I:%M %p", "%I:%M:%S %p"},
      {{.time = "kl. %H.%M %z"}, "kl. %H.%M", "kl. %H.%M"},
      {{.time = "%H\uC2DC %M\uBD84 %S\uCD08"}, "%H\uC2DC %M\uBD84", "%H\uC2DC %M\uBD84 %S\uCD08"},
      {{.time = "%OH:%OM:%OS"}, "%OH:%OM", "%OH:%OM:%OS"}};
  for (const auto& row : times) {
    EXPECT_EQ(patternOf(DateText::ShortTime, row.patterns), row.shortTime);
    EXPECT_EQ(patternOf(DateText::LongTime, row.patterns), row.longTime);
  }
}

}  // namespace
}  // namespace veldrin::test
