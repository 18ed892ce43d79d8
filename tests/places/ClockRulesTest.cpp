#include "civiltime/ClockRules.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "places/ZoneFolder.h"
#include "places/ZoneRules.h"
#include "shell/host/Civil.h"

namespace veldrin::test {
namespace {

constexpr double at(std::int64_t year, std::int32_t month, std::int32_t day, double hour,
                    double minute) {
  return static_cast<double>(dayNumber(year, month, day) * MinutesOfDay) + hour * 60.0 + minute;
}

const ClockRules LordHowe(660.0,
                          {{at(2026, 4, 4, 15, 0), 630.0}, {at(2026, 10, 3, 15, 30), 660.0}});

TEST(ClockRulesTest, ARepeatedTimeMeansItsFirstMomentASkippedOneUsesTheOldOffset) {
  const struct {
    std::int32_t month, day;
    double hour, minute, moment;
  } rows[] = {
      {4, 5, 1, 29, at(2026, 4, 4, 14, 29)},   {4, 5, 1, 30, at(2026, 4, 4, 14, 30)},
      {4, 5, 1, 59, at(2026, 4, 4, 14, 59)},   {4, 5, 2, 0, at(2026, 4, 4, 15, 30)},
      {10, 4, 1, 59, at(2026, 10, 3, 15, 29)}, {10, 4, 2, 0, at(2026, 10, 3, 15, 30)},
      {10, 4, 2, 29, at(2026, 10, 3, 15, 59)}, {10, 4, 2, 30, at(2026, 10, 3, 15, 30)},
      {10, 4, 24, 0, at(2026, 10, 4, 13, 0)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(LordHowe.momentOf(dayNumber(2026, row.month, row.day), row.hour * 60.0 + row.minute),
              row.moment)
        << row.month << ' ' << row.hour << ':' << row.minute;
  }
  EXPECT_EQ(LordHowe.offsetAt(at(2026, 4, 4, 14, 59)), 660.0);
  EXPECT_EQ(LordHowe.offsetAt(at(2026, 4, 4, 15, 0)), 630.0);
}

TEST(ClockRulesTest, ApiaHadNoDecember30) {
  const double change = at(2011, 12, 30, 10, 0);
  const ClockRules apia(-600.0, {{change, 840.0}});
  EXPECT_FALSE(apia.spanOf(dayNumber(2011, 12, 30)));
  EXPECT_EQ(apia.spanOf(dayNumber(2011, 12, 29))->end, change);
  EXPECT_EQ(apia.spanOf(dayNumber(2011, 12, 31))->begin, change);
  EXPECT_EQ(apia.dayAt(change - 1e-3), dayNumber(2011, 12, 29));
  EXPECT_EQ(apia.dayAt(change), dayNumber(2011, 12, 31));
  EXPECT_EQ(apia.momentOf(dayNumber(2011, 12, 30), 720.0), change + 720.0);
}

/// At the moment of a local time, the clock shows this time, and the moment is in the span of the
/// day. If the clock skips the time, it shows a later one.
TEST(ClockRulesTest, DaysAndMomentsAgree) {
  const struct {
    const char* zone;
    std::int64_t year;
  } rows[] = {{"Pacific/Apia", 2011},      {"Pacific/Kwajalein", 1993}, {"America/St_Johns", 2006},
              {"Africa/Casablanca", 2024}, {"America/Sao_Paulo", 2018}, {"Europe/Warsaw", 1915},
              {"America/Juneau", 1867}};
  const ZoneFolder folder = ZoneFolder::ofMachine();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.zone);
    const auto rules = zoneRules(folder.read(row.zone), row.year, row.year);
    ASSERT_TRUE(rules);
    for (auto day = dayNumber(row.year, 1, 1); day <= dayNumber(row.year, 12, 31); ++day) {
      const auto span = rules->spanOf(day);
      if (span) {
        ASSERT_EQ(rules->dayAt(span->begin + 1e-6), day);
        ASSERT_EQ(rules->dayAt(span->end - 1e-6), day);
      }
      for (int halfMinutes = 0; halfMinutes < 2 * MinutesOfDay; halfMinutes += 59) {
        const double minute = halfMinutes / 2.0;
        const double moment = rules->momentOf(day, minute);
        const double shown = moment + rules->offsetAt(moment);
        const double asked = static_cast<double>(day * MinutesOfDay) + minute;
        ASSERT_GE(shown, asked - 1e-6) << day;
        if (shown > asked + 1e-6) continue;
        ASSERT_TRUE(span) << day;
        ASSERT_GE(moment, span->begin - 1e-6) << day;
        ASSERT_LT(moment, span->end) << day;
        ASSERT_EQ(rules->dayAt(moment + 1e-6), day);
      }
    }
  }
}

}  // namespace
}  // namespace veldrin::test
