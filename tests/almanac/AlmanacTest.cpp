#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "almanac/Almanac.h"
#include "almanac/Crossings.h"
#include "civiltime/DaylightSavings.h"
#include "solar/RiseSetSearch.h"
#include "tests/support/Documents.h"
#include "tests/support/ValuesTest.h"

namespace veldrin::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::set<Twilight> AllTwilights{Twilight::Civil, Twilight::Nautical, Twilight::Astronomical};

/// An event of a document.
struct Entry {
  std::string kind, day, start;
};

class AlmanacTest : public ValuesTest {
 protected:
  enum class Saving { None, North, South };

  /// The clock of a year with this UTC offset. Daylight saving has the default days.
  static ClockYear clockYear(std::int32_t year, double zone, Saving saving) {
    std::optional<civiltime::SavingDays> days;
    if (saving != Saving::None) {
      days = civiltime::defaultDays(year);
      days->downUnder = saving == Saving::South;
    }
    return {year, civiltime::clockRules(zone, days, year)};
  }

  static std::string write(const Place& place, const ClockYear& year,
                           const AlmanacOptions& options) {
    return almanac(place, {&year, 1}, options, [] {});
  }

  /// The events in order. The document must have no folded lines.
  static std::vector<Entry> eventsOf(const std::string& document) {
    std::vector<Entry> events;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
      const std::string value =
          line.substr(line.find(':') + 1, line.find('\r') - line.find(':') - 1);
      if (line.starts_with("UID:")) {
        const std::size_t date = value.find_first_of("0123456789");
        events.push_back({value.substr(0, date - 1), value.substr(date, 8), ""});
      }
      if (line.starts_with("DTSTART")) events.back().start = value;
    }
    return events;
  }

  static bool isOfSun(const Entry& event) {
    return event.kind == "sunrise" || event.kind == "sunset";
  }
};

bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The mean and the maximum of absolute errors, in seconds.
struct Errors {
  double sum = 0.0, most = 0.0;
  int count = 0;

  void add(double error) {
    sum += std::fabs(error);
    most = std::max(most, std::fabs(error));
    ++count;
  }
  [[nodiscard]] double mean() const { return sum / count; }
};

// Near the poles the Sun crosses the horizon at a small angle, so a small error of its altitude
// causes a large error of time.
TEST_F(AlmanacTest, TimesMatchAnEphemeris) {
  const auto sineBelow = [](double degrees) { return std::sin(-degrees * solar::Rads); };
  const std::array sines{solar::sineAtHorizon(solar::Rads), sineBelow(6.0), sineBelow(12.0),
                         sineBelow(18.0)};
  constexpr double Polar = 65.0;
  std::map<std::string, Errors> errors;
  std::ifstream rows(VELDRIN_TEST_DATA "/sky.txt");
  int days = 0;
  for (std::string row; std::getline(rows, row);) {
    if (row.starts_with('#')) continue;
    ++days;
    SCOPED_TRACE(row);
    std::istringstream words(row);
    double latitude = 0.0;
    double longitude = 0.0;
    CivilDay day{};
    char dash = 0;
    words >> latitude >> longitude >> day.year >> dash >> day.month >> dash >> day.day;
    day = {day.year, std::abs(day.month), std::abs(day.day)};
    const std::int64_t number = dayNumber(day.year, day.month, day.day);
    const Sky sky(latitude, longitude);
    const std::vector<Crossing> found = crossings(sky, number, number, sines, [] {});
    const solar::DayEvents searched = solar::searchDay(
        sines[0], [&](double at) { return sky.sineAltitude(Sky::midnightOf(number), at); }, [] {});

    const std::string zone = std::fabs(latitude) > Polar ? "polar" : "elsewhere";
    std::string expected;
    std::string actual;
    for (const Crossing& crossing : found) {
      actual += std::to_string(crossing.altitude) + (crossing.rises ? "r " : "s ");
    }
    std::size_t place = 0;
    for (std::string word; words >> word; ++place) {
      expected += word.substr(0, 2) + " ";
      int hour = 0;
      int minute = 0;
      double second = 0.0;
      ASSERT_EQ(std::sscanf(word.c_str() + 2, "%d:%d:%lf", &hour, &minute, &second), 3);
      const double hours = hour + (minute + second / 60.0) / 60.0;
      ASSERT_LT(place, found.size());
      errors[zone].add((found[place].hour - hours) * 3600.0);
      if (word[0] != '0') continue;
      ASSERT_EQ(word[1] == 'r' ? searched.rise : searched.sett, 1);
      const double time = word[1] == 'r' ? searched.utrise : searched.utset;
      errors[zone + ", by the search of a day"].add((time - hours) * 3600.0);
    }
    EXPECT_EQ(actual, expected);
  }
  EXPECT_EQ(days, 192);
  const struct {
    std::string of;
    double mean, most;
  } limits[] = {{"elsewhere", 4.0, 15.0},
                {"elsewhere, by the search of a day", 15.0, 30.0},
                {"polar", 6.0, 20.0},
                {"polar, by the search of a day", 20.0, 60.0}};
  for (const auto& limit : limits) {
    const Errors& of = errors[limit.of];
    EXPECT_LT(of.mean(), limit.mean) << limit.of;
    EXPECT_LT(of.most, limit.most) << limit.of;
  }
}

TEST_F(AlmanacTest, KnownYearsHaveTheirNumberOfEvents) {
  const struct {
    double latitude, longitude, zone;
    Saving saving;
    std::int32_t year;
    std::ptrdiff_t events;
    const char* line;
  } rows[] = {
      {40.7128, -74.006, -5.0, Saving::North, 2026, 730,
       "\r\nUID:sunset-20260509+40.7128-074.0060@veldrin\r\n"},
      {69.6492, 18.9553, 1.0, Saving::North, 2026, 614,
       "\r\nUID:sunset-20260727-2+69.6492+018.9553@veldrin\r\n"},
      // The local day begins 25 hours before the UTC day.
      {-10.0, 94.0, 24.0, Saving::South, 2030, 730,
       "-20300101-10.0000+094.0000@veldrin\r\nDTSTAMP:"
       "19700101T000000Z\r\nDTSTART:20291230T2326"},
      {-90.0, 180.0, 24.0, Saving::North, 9998, 365,
       "\r\nUID:no-sunset-99981231-90.0000+000.0000@veldrin\r\n"},
      {89.99999, 94.0, 24.0, Saving::None, 2026, 365, "+90.0000+000.0000@veldrin\r\n"},
      {0.0, -180.0, -12.0, Saving::None, 2026, 730, "1+00.0000+180.0000@veldrin\r\n"},
      {90.0, -180.0, -24.0, Saving::North, 1583, 365, "\r\nLOCATION:90.0000 N\\, 180.0000 W\r\n"},
      {-0.00001, 7.5, 0.5, Saving::North, 2000, 732, "\r\nGEO:0.0000;7.5000\r\n"},
      {-5.25, -0.00004, 0.5, Saving::North, 2001, 730, "\r\nLOCATION:5.2500 S\\, 0.0000 E\r\n"}};
  for (const auto& row : rows) {
    const std::string document =
        write({"", row.latitude, row.longitude}, clockYear(row.year, row.zone, row.saving), {});
    EXPECT_EQ(std::ssize(eventsOf(document)), row.events) << row.line;
    EXPECT_THAT(document, HasSubstr(row.line));
  }
}

TEST_F(AlmanacTest, AnEventIsWrittenToTheByte) {
  const std::string document =
      write({"Troms\xC3\xB8", 69.6492, 18.9553}, clockYear(2026, 1.0, Saving::North),
            {{Twilight::Civil}, 15, 1'767'225'599});
  const std::string common =
      "LOCATION:Troms\xC3\xB8\r\nGEO:69.6492;18.9553\r\nTRANSP:TRANSPARENT\r\n";
  const std::string stamp = "@veldrin\r\nDTSTAMP:20251231T235959Z\r\n";
  EXPECT_THAT(document,
              StartsWith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Veldrin//Veldrin 6//EN\r\n"
                         "CALSCALE:GREGORIAN\r\nX-WR-CALNAME:Troms\xC3\xB8\r\nBEGIN:VEVENT\r\n"
                         "UID:no-sunrise-20260101+69.6492+018.9553" +
                         stamp +
                         "DTSTART;VALUE=DATE:20260101\r\nDTEND;VALUE=DATE:20260102\r\n"
                         "SUMMARY:Sun down all day\r\n" +
                         common +
                         "END:VEVENT\r\nBEGIN:VEVENT\r\n"
                         "UID:civil-dawn-20260101+69.6492+018.9553" +
                         stamp));
  EXPECT_THAT(document,
              HasSubstr("BEGIN:VEVENT\r\nUID:sunset-20260727-2+69.6492+018.9553" + stamp +
                        "DTSTART:20260727T215900Z\r\nDTEND:20260727T220000Z\r\nSUMMARY:Sunset\r\n" +
                        common +
                        "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:Sunset\r\n"
                        "TRIGGER:-PT15M\r\nEND:VALARM\r\nEND:VEVENT\r\n"));
}

TEST_F(AlmanacTest, LocalDaysBeginAndEndAtMidnightOfTheClock) {
  const struct {
    double zone;
    Saving saving;
    std::int64_t dayOfYear;  // from 0
    double beginHour, endHour;
  } rows[] = {{-5.0, Saving::North, 0, 5.0, 29.0},     {-5.0, Saving::North, 66, 5.0, 28.0},
              {-5.0, Saving::North, 304, 4.0, 29.0},   {-5.0, Saving::None, 66, 5.0, 29.0},
              {10.0, Saving::South, 0, -11.0, 13.0},   {10.0, Saving::South, 66, -11.0, 14.0},
              {5.75, Saving::None, 100, -5.75, 18.25}, {24.0, Saving::South, 364, -25.0, -1.0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.zone) + " " + std::to_string(row.dayOfYear));
    const ClockRules clock = clockYear(2026, row.zone, row.saving).clock;
    const std::int64_t day = dayNumber(2026, 1, 1) + row.dayOfYear;
    const std::optional<DaySpan> span = clock.spanOf(day);
    ASSERT_TRUE(span);
    EXPECT_EQ(span->begin / 60.0 - static_cast<double>(day * 24), row.beginHour);
    EXPECT_EQ(span->end / 60.0 - static_cast<double>(day * 24), row.endHour);
    EXPECT_EQ(clock.dayAt(span->begin), day);
    EXPECT_EQ(clock.dayAt(span->end), day + 1);
  }
}

TEST_F(AlmanacTest, EachDayOfTwoYearsHasSunEventsOrOneMark) {
  std::mt19937_64 random(11);
  const auto upTo = [&](double bound) {
    return std::uniform_real_distribution<double>(-bound, bound)(random);
  };
  for (int count = 0; count < 60; ++count) {
    std::int32_t year = std::uniform_int_distribution<std::int32_t>(1583, 9997)(random);
    double latitude = count % 3 == 0 ? std::copysign(67.0, upTo(1.0)) + upTo(2.0) : upTo(90.0);
    if (count % 20 == 4) latitude = std::copysign(90.0, latitude);
    const double zone = count % 2 == 0 ? std::round(upTo(96.0)) / 4.0 : upTo(24.0);
    const Saving saving = count % 4 == 0   ? Saving::None
                          : latitude < 0.0 ? Saving::South
                                           : Saving::North;
    std::vector<Entry> events;
    double longitude = upTo(180.0);
    // The Sun rises exactly at a full hour, where two parabolas of the search meet.
    if (count == 1)
      std::tie(year, latitude, longitude) = std::tuple(2014, 47.5, 160.53117360097065);
    for (const std::int32_t each : {year, year + 1}) {
      const std::string document =
          write({"", latitude, longitude}, clockYear(each, zone, saving), {AllTwilights, 0});
      const std::vector<Entry> more = eventsOf(document);
      events.insert(events.end(), more.begin(), more.end());
    }
    SCOPED_TRACE(std::to_string(year) + " " + textOf(latitude) + " " + textOf(longitude) + " " +
                 textOf(zone));

    std::map<std::string, std::pair<int, int>> marksAndEvents;  // by local day
    std::string lastStart;
    std::string lastKind;
    std::string lastDay;
    for (const Entry& event : events) {
      ASSERT_LE(lastDay, event.day);
      lastDay = event.day;
      auto& [marks, sunEvents] = marksAndEvents[event.day];
      if (event.start.size() == 8) {
        ++marks;
        ASSERT_EQ(event.start, event.day);
        // After a sunrise the Sun stays up, after a sunset it stays down.
        if (!lastKind.empty()) {
          ASSERT_EQ(event.kind, lastKind == "sunrise" ? "no-sunset" : "no-sunrise") << event.day;
        }
        continue;
      }
      ASSERT_LT(lastStart, event.start);
      lastStart = event.start;
      if (!isOfSun(event)) continue;
      ++sunEvents;
      ASSERT_NE(event.kind, lastKind) << event.start;
      lastKind = event.kind;
    }
    const std::int64_t first = dayNumber(year, 1, 1);
    const std::int64_t end = dayNumber(year + 2, 1, 1);
    ASSERT_EQ(std::ssize(marksAndEvents), end - first);
    for (const auto& [day, both] : marksAndEvents) {
      ASSERT_EQ(both.first, both.second == 0 ? 1 : 0) << day;
    }
    // No sunrise or sunset is lost or repeated at the turn of the year.
    const std::array horizon{solar::sineAtHorizon(solar::Rads)};
    const auto all = crossings(Sky(latitude, longitude), first - 2, end + 1, horizon, [] {});
    const auto lastOfYear = clockYear(year + 1, zone, saving).clock.spanOf(end - 1);
    const auto firstOfYear = clockYear(year, zone, saving).clock.spanOf(first);
    EXPECT_EQ(std::ranges::count_if(all,
                                    [&](const Crossing& crossing) {
                                      const auto minute = static_cast<double>(crossing.minute());
                                      return minute >= firstOfYear->begin &&
                                             minute < lastOfYear->end;
                                    }),
              std::ranges::count_if(events, isOfSun));
  }
}

TEST_F(AlmanacTest, LinesAreFoldedBetweenCharacters) {
  for (const std::string& unit :
       {std::string("a"), std::string("\xC3\xB8"), std::string("\xE6\x9D\xB1,"),
        std::string("\xF0\x9F\x8C\x85\\;\r\n")}) {
    for (int shift = 0; shift < 5; ++shift) {
      std::string place(static_cast<std::size_t>(shift), 'x');
      for (int count = 0; count < 80; ++count) place += unit;
      const std::string document =
          write({place, 47.5, -122.5}, clockYear(2026, -8.0, Saving::North), {});
      std::string unfolded;
      for (std::size_t at = 0, end = 0; at < document.size(); at = end + 2) {
        end = document.find("\r\n", at);
        ASSERT_NE(end, std::string::npos);
        const std::string line = document.substr(at, end - at);
        const bool isFolded = line.starts_with(' ');
        ASSERT_TRUE(line.size() <= 75 && !continuesCharacter(line[isFolded ? 1 : 0])) << line;
        unfolded += isFolded ? line.substr(1) : "\n" + line;
      }
      std::string escaped;
      for (const char character : place) {
        if (std::string(",;\\\n").find(character) != std::string::npos) escaped += '\\';
        if (character != '\r') escaped += character == '\n' ? 'n' : character;
      }
      EXPECT_THAT(unfolded, HasSubstr("\nLOCATION:" + escaped + "\n"));
      EXPECT_THAT(unfolded, HasSubstr("\nX-WR-CALNAME:" + escaped + "\n"));
    }
  }
}

}  // namespace
}  // namespace veldrin::test
