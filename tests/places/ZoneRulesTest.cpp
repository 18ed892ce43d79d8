#include "places/ZoneRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <set>
#include <string>

#include "places/ZoneFolder.h"
#include "shell/host/Civil.h"

namespace veldrin::test {
namespace {

/// Sets `TZ` for the C library, and unsets it at destruction.
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

/// A second at which the rules and the C library differ, from a month before the year to a month
/// after it; 0 if none is found. Compares every 20 hours, and the two seconds around each change.
std::int64_t differenceIn(const ClockRules& rules, std::int64_t year) {
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
      EXPECT_EQ(differenceIn(*rules, year), 0) << year;
    }
  }
  EXPECT_GT(seen.size(), 300U);
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
