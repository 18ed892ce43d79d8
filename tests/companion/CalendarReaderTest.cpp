#include <libical/ical.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "almanac/Almanac.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

class CalendarReaderTest : public WindowTest {
 protected:
  void TearDown() override {
    icalmemory_free_ring();
    WindowTest::TearDown();
  }

  /// The events of the document as the reader has them, which nothing but events may be in.
  std::vector<icalcomponent*> eventsOf(const std::string& document) {
    calendar_.reset(icalparser_parse_string(document.c_str()));
    std::vector<icalcomponent*> events;
    if (calendar_ == nullptr) return events;
    EXPECT_EQ(icalcomponent_isa(calendar_.get()), ICAL_VCALENDAR_COMPONENT);
    EXPECT_EQ(icalcomponent_count_errors(calendar_.get()), 0);
    for (auto* event = icalcomponent_get_first_component(calendar_.get(), ICAL_ANY_COMPONENT);
         event != nullptr;
         event = icalcomponent_get_next_component(calendar_.get(), ICAL_ANY_COMPONENT)) {
      EXPECT_EQ(icalcomponent_isa(event), ICAL_VEVENT_COMPONENT);
      events.push_back(event);
    }
    return events;
  }

 private:
  struct Free {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
  };
  std::unique_ptr<icalcomponent, Free> calendar_;
};

TEST_F(CalendarReaderTest, AReaderFindsTwoEventsADayAtTheTimesOfTheirSummaries) {
  using namespace std::chrono;
  choose("2008");
  const std::vector<icalcomponent*> events = eventsOf(generate());
  sys_days day = 2008y / January / 1;
  int count = 0;
  for (icalcomponent* const event : events) {
    const bool rises = count++ % 2 == 0;
    if (rises) day += days(1);
    const icaltimetype start = icalcomponent_get_dtstart(event);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%s at %02d:%02d", rises ? "Sunrise" : "Sunset",
                  start.hour, start.minute);
    // The reader drops the blank at the start of the value.
    ASSERT_STREQ(icalcomponent_get_summary(event), expected);
    ASSERT_EQ(sys_days(year(start.year) / start.month / start.day), day) << expected;
    ASSERT_EQ(start.second, 0);
    // A local time of whoever reads it.
    ASSERT_TRUE(!start.is_date && !icaltime_is_utc(start) && start.zone == nullptr);
  }
  EXPECT_EQ(count, 730);
  EXPECT_EQ(day, sys_days(2008y / December / 31));
}

TEST_F(CalendarReaderTest, AReaderTakesEveryEventOfTheStandardDocument) {
  std::string place = "Troms\xC3\xB8; Norge, \\69\xC2\xB0: ";
  for (int count = 0; count < 50; ++count) place += "\xE6\x9D\xB1";
  const ClockYear year{2026, ClockRules(-480.0)};
  const std::vector<icalcomponent*> events =
      eventsOf(almanac({place, 69.6492, 18.9553}, {&year, 1}, {{Twilight::Civil}, 15, 0}, [] {}));
  EXPECT_GT(events.size(), 1000U);
  for (icalcomponent* const event : events) {
    ASSERT_EQ(icalcomponent_get_location(event), place);
    const bool isOfDay = std::string(icalcomponent_get_summary(event)).ends_with("all day");
    ASSERT_EQ(icaldurationtype_as_int(icalcomponent_get_duration(event)), isOfDay ? 86400 : 60);
  }
}

}  // namespace
}  // namespace veldrin::test
