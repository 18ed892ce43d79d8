#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include "shell/SystemHost.h"

namespace veldrin::test {
namespace {

using testing::AnyOf;
using enum ShortDateForm::Order;

/// A variable of the environment, for as long as it stands.
class Setting {
 public:
  Setting(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~Setting() {
    before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_);
    ::tzset();
  }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

std::array<std::int32_t, 6> fieldsOf(const CivilMoment& moment) {
  return {moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second};
}

TEST(SystemHostTest, ShowsTheMomentsOfEachZone) {
  const struct {
    const char* zone;
    std::int64_t moment;  // seconds since 1970-01-01 UTC
    CivilMoment local;
    double hours;       // of the offset
    double otherHours;  // of a local moment that comes twice; else the same
  } rows[] = {
      {"UTC", -1, {1969, 12, 31, 23, 59, 59}, 0.0, 0.0},
      {"Asia/Kolkata", 1205020800, {2008, 3, 9, 5, 30, 0}, 5.5, 5.5},
      {"America/Los_Angeles", 1710064799, {2024, 3, 10, 1, 59, 59}, -8.0, -8.0},
      {"America/Los_Angeles", 1710064800, {2024, 3, 10, 3, 0, 0}, -7.0, -7.0},
      {"America/Los_Angeles", 1730624399, {2024, 11, 3, 1, 59, 59}, -7.0, -8.0},
      {"America/Los_Angeles", 1730624400, {2024, 11, 3, 1, 0, 0}, -8.0, -7.0},
      {"America/Los_Angeles", 1730628000, {2024, 11, 3, 2, 0, 0}, -8.0, -8.0},
      {"America/Los_Angeles", 4118151600, {2100, 7, 1, 12, 0, 0}, -7.0, -7.0},
      {"Pacific/Apia", 1325239199, {2011, 12, 29, 23, 59, 59}, -10.0, -10.0},
      {"Pacific/Apia", 1325239200, {2011, 12, 31, 0, 0, 0}, 14.0, 14.0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.zone) + " at " + std::to_string(row.moment));
    const Setting zone("TZ", row.zone);
    const SystemHost host;
    EXPECT_EQ(fieldsOf(host.localTime(row.moment)), fieldsOf(row.local));
    EXPECT_THAT(host.gmtOffset(row.local), AnyOf(row.hours, row.otherHours));
  }
}

TEST(SystemHostTest, EveryMomentHasAnAnswer) {
  const Setting zone("TZ", "Etc/GMT-14");
  const SystemHost host;
  EXPECT_EQ(host.gmtOffset({INT32_MAX, 12, 31, 23, 59, 59}), 0.0);
  EXPECT_EQ(host.gmtOffset({INT32_MIN, 1, 1, 0, 0, 0}), 0.0);
  EXPECT_EQ(host.gmtOffset({-4712, 1, 1, 12, 0, 0}), 14.0);
  for (const std::int64_t moment : {INT64_MIN, INT64_MAX}) {
    const std::int32_t month = host.localTime(moment).month;
    EXPECT_TRUE(month >= 1 && month <= 12) << moment;
  }
  // A day that the zone leaves out has the offset of a neighbour.
  const Setting apia("TZ", "Pacific/Apia");
  EXPECT_THAT(host.gmtOffset({2011, 12, 30, 12, 0, 0}), AnyOf(-10.0, 14.0));
}

TEST(SystemHostTest, LocaleThatIsMissingHasTheUsualDateForm) {
  const Setting locale("LC_ALL", "no_SUCH.locale");
  EXPECT_EQ(SystemHost().shortDateForm(), ShortDateForm());
}

TEST(SystemHostTest, PatternGivesOrderAndSeparator) {
  const ShortDateForm unset = {MonthDayYear, '/'};
  const struct {
    const char* pattern;
    ShortDateForm form;
  } rows[] = {{"%m/%d/%Y", {MonthDayYear, '/'}},
              {"%D", {MonthDayYear, '/'}},
              {"%F", {YearMonthDay, '-'}},
              {"%-d.%-m.%Y", {DayMonthYear, '.'}},
              {"%Od/%Om/%Ey", {DayMonthYear, '/'}},
              {"%d %m %Y", {DayMonthYear, ' '}},
              {"%d-%m-%Y \xD0\xB3.", {DayMonthYear, '-'}},
              {"%a %d/%m/%Y", {DayMonthYear, '/'}},
              {"%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5", {YearMonthDay, '/'}},
              {"%d %b %Y", unset},
              {"%%d.%%m.%%Y", unset},
              {"%d.%m.%", unset}};
  for (const auto& row : rows) {
    EXPECT_EQ(shortDateFormOf(row.pattern), row.form) << row.pattern;
  }
}

}  // namespace
}  // namespace veldrin::test
