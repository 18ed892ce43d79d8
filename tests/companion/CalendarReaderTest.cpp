#include <libical/ical.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

using CalendarReaderTest = WindowTest;

TEST_F(CalendarReaderTest, AReaderFindsTwoEventsADayAtTheTimesOfTheirSummaries) {
  using namespace std::chrono;
  choose("2008");
  const std::unique_ptr<icalcomponent, void (*)(icalcomponent*)> calendar(
      icalparser_parse_string(generate().c_str()), icalcomponent_free);
  ASSERT_TRUE(calendar);
  EXPECT_EQ(icalcomponent_isa(calendar.get()), ICAL_VCALENDAR_COMPONENT);
  EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0);
  EXPECT_EQ(icalcomponent_count_components(calendar.get(), ICAL_ANY_COMPONENT), 730);
  sys_days day = 2008y / January / 1;
  int count = 0;
  for (auto* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
       event != nullptr;
       event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
    const bool isSunrise = count++ % 2 == 0;
    if (isSunrise) day += days(1);
    const icaltimetype start = icalcomponent_get_dtstart(event);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%s at %02d:%02d", isSunrise ? "Sunrise" : "Sunset",
                  start.hour, start.minute);
    // The reader drops the leading blank.
    ASSERT_STREQ(icalcomponent_get_summary(event), expected);
    ASSERT_EQ(sys_days(year(start.year) / start.month / start.day), day) << expected;
    ASSERT_EQ(start.second, 0);
    // A local time without a time zone.
    ASSERT_TRUE(!start.is_date && !icaltime_is_utc(start) && start.zone == nullptr);
  }
  EXPECT_EQ(count, 730);
  EXPECT_EQ(day, sys_days(2008y / December / 31));
  icalmemory_free_ring();
}

}  // namespace
}  // namespace veldrin::test
