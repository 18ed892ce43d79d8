#include "places/ZoneRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <set>
#include <string>

#include "places/PosixRule.h"
#include "places/ZoneFolder.h"
#include "shell/host/Civil.h"

namespace veldrin::test {
namespace {

/// The C library with a value of `TZ`: a rule, or ":" and the name of a zone.
class ZoneOfCLibrary {
 public:
  explicit ZoneOfCLibrary(const std::string& value) {
    ::setenv("TZ", value.c_str(), 1);
    ::tzset();
  }
  ZoneOfCLibrary(const ZoneOfCLibrary&) = delete;
  ZoneOfCLibrary& operator=(const ZoneOfCLibrary&) = delete;
  ~ZoneOfCLibrary() {
    ::unsetenv("TZ");
    ::tzset();
  }

  [[nodiscard]] static std::int64_t offsetAt(std::int64_t second) {
    tm fields{};
    ::localtime_r(&second, &fields);
    return fields.tm_gmtoff;
  }
};

std::int64_t offsetAt(const ClockRules& rules, std::int64_t second) {
  return std::llround(rules.offsetAt(static_cast<double>(second) / 60.0) * 60.0);
}

/// The first second of a year, a month on both sides included, at which the two differ; 0 if none
/// does. The C library's own changes are found by halving, and both of their seconds compared.
std::int64_t firstDifference(const ClockRules& rules, std::int64_t year) {
  constexpr std::int64_t Step = 19 * 3600 + 59;
  const std::int64_t end = dayNumber(year + 1, 2, 1) * SecondsOfDay;
  for (std::int64_t at = dayNumber(year - 1, 12, 1) * SecondsOfDay; at < end; at += Step) {
    std::int64_t low = at;
    std::int64_t high = at + Step;
    if (offsetAt(rules, low) != ZoneOfCLibrary::offsetAt(low)) return low;
    if (ZoneOfCLibrary::offsetAt(low) == ZoneOfCLibrary::offsetAt(high)) continue;
    while (high - low > 1) {
      const std::int64_t middle = (low + high) / 2;
      const bool isBefore = ZoneOfCLibrary::offsetAt(middle) == ZoneOfCLibrary::offsetAt(at);
      (isBefore ? low : high) = middle;
    }
    if (offsetAt(rules, low) != ZoneOfCLibrary::offsetAt(low)) return low;
    if (offsetAt(rules, high) != ZoneOfCLibrary::offsetAt(high)) return high;
  }
  return 0;
}

TEST(ZoneRulesTest, EveryZoneGoesByTheCLibrary) {
  const ZoneFolder folder = ZoneFolder::ofMachine();
  std::set<std::string> seen;
  for (const std::string& name : folder.names()) {
    const std::string file = folder.read(name);
    if (!seen.insert(file).second) continue;
    SCOPED_TRACE(name);
    const ZoneOfCLibrary oracle(":" + name);
    for (const std::int64_t year : {1850, 1941, 2011, 2026, 2438, 9998}) {
      const auto rules = zoneRules(file, year, year);
      ASSERT_TRUE(rules);
      EXPECT_EQ(firstDifference(*rules, year), 0) << year;
    }
  }
  EXPECT_GT(seen.size(), 300U);
}

TEST(PosixRuleTest, RulesGoByTheCLibrary) {
  for (const char* text : {"UTC0", "<+0545>-5:45", "ABC-1:02:03", "CET-1CEST,M3.5.0,M10.5.0/3",
                           "IST-1GMT0,M10.5.0,M3.5.0/1", "NZST-12NZDT,M9.5.0,M4.1.0/3",
                           "<-02>2<-01>,M3.5.0/-1,M10.5.0/0", "<-04>4<-03>,M9.1.6/24,M4.1.6/24",
                           "EET-2EEST,M3.4.4/50,M10.4.4/50", "ABC3DEF,J60,J300/4",
                           "ABC3DEF,59/0:30,299/1:02:03", "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0"}) {
    const auto rule = PosixRule::read(text);
    ASSERT_TRUE(rule) << text;
    const ZoneOfCLibrary oracle(text);
    for (std::int64_t at = dayNumber(2023, 1, 10) * SecondsOfDay;
         at < dayNumber(2025, 12, 20) * SecondsOfDay; at += 1799) {
      ASSERT_EQ(rule->offsetAt(at), ZoneOfCLibrary::offsetAt(at)) << text << ' ' << at;
    }
  }
}

/// The example of RFC 8536, 3.3.1.
TEST(PosixRuleTest, DaylightSavingMayHoldAllYear) {
  const auto rule = PosixRule::read("XXX3EDT4,0/0,J365/23");
  ASSERT_TRUE(rule);
  for (std::int64_t at = dayNumber(2023, 6, 1) * SecondsOfDay;
       at < dayNumber(2025, 6, 1) * SecondsOfDay; at += 1800) {
    ASSERT_EQ(rule->offsetAt(at), -4 * 3600) << at;
  }
}

TEST(PosixRuleTest, OtherTextsAreNoRules) {
  for (const char* text : {"",
                           "UT0",
                           "UTC",
                           "UTC25",
                           "UTC0:60",
                           "UTC--1",
                           "UTC-+1",
                           "<UTC0",
                           "<A>0",
                           "CET-1CEST",
                           "CET-1CEST,M3.5.0",
                           "CET-1CEST,M3.5.0,",
                           "CET-1CEST,M0.5.0,M10.5.0",
                           "UTC0 ",
                           "CET-1CEST,M3.6.0,M10.5.0",
                           "CET-1CEST,M3.5.7,M10.5.0",
                           "CET-1CEST,J0,J300",
                           "CET-1CEST,1,366",
                           "CET-1CEST,1/168,2",
                           "CET-1CEST,1,2,3",
                           "UTC99999999999"}) {
    EXPECT_FALSE(PosixRule::read(text)) << text;
  }
}

TEST(ZoneRulesTest, DamagedBytesAreRefusedOrGiveSoundRules) {
  const std::string file = ZoneFolder::ofMachine().read("Asia/Tokyo");
  const auto expectSound = [](const std::string& bytes) {
    const auto rules = zoneRules(bytes, 1948, 1951);
    if (rules) {
      EXPECT_LT(std::abs(offsetAt(*rules, -600'000'000)), SecondsOfDay);
    }
    return rules.has_value();
  };
  ASSERT_TRUE(expectSound(file));
  for (std::size_t place = 0; place < file.size(); ++place) {
    EXPECT_FALSE(expectSound(file.substr(0, place))) << place;
    for (const char bit : {'\x01', '\x80', '\xff'}) {
      std::string flipped = file;
      flipped[place] = static_cast<char>(flipped[place] ^ bit);
      expectSound(flipped);
    }
  }
}

}  // namespace
}  // namespace veldrin::test
