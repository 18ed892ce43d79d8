#include "apps/CalendarOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <system_error>

#include "apps/PlainText.h"
#include "shell/ParseDate.h"
#include "shell/Text.h"

namespace veldrin {
namespace {

constexpr int BadUsage = 2;
constexpr std::int32_t FirstYear = 1;
constexpr std::int32_t LastYear = 9999;

constexpr const char* Purpose =
    "Writes the times of sunrise and sunset of a year at a place into an iCalendar file.";

constexpr const char* Examples = R"(Examples:
  veldrin-calendar
      this year at 47.5 north, 122.5 west, into Veldrin.ics
  veldrin-calendar --latitude=52.52 --longitude=13.405 --time-zone=1 --year=2030 \
      --dst-start=2030-03-31 --dst-end=2030-10-27 --output=berlin-2030.ics
  veldrin-calendar --latitude=-33.87 --longitude=151.21 --time-zone=10 --down-under \
      --year=2030 --dst-start=2030-04-07 --dst-end=2030-10-06 --output=sydney-2030.ics
  veldrin-calendar --latitude=47.5 --longitude=-122.5 --time-zone=-8 --status=2024-06-21
      the times of one day

A DATE is 2024-06-21, or the short form of this system's date setting. South of the equator, where
daylight saving holds over the new year, --down-under takes the time outside the two dates.)";

/// The help, without the library's own mark of the flag that says no.
std::string helpOf(const CLI::App& app) {
  constexpr std::string_view Mark = "--no-dst{false}";
  constexpr std::string_view Plain = "--no-dst       ";
  std::string help = app.help();
  if (const std::size_t at = help.find(Mark); at != std::string::npos) {
    help.replace(at, Mark.size(), Plain);
  }
  return help;
}

/// Throws what is wrong with an option's value, as one sentence; `readCommandLine` catches it.
[[noreturn]] void refuse(const std::string& option, const std::string& needs,
                         const std::string& given) {
  constexpr std::size_t Shown = 60;
  const std::string text = given.size() > Shown ? given.substr(0, Shown) + "..." : given;
  throw CLI::ValidationError(option, "needs " + needs + ", not \"" + text + "\"");
}

void checkNumber(const std::string& option, const std::optional<std::string>& text, double bound) {
  if (!text) return;
  const auto number = readNumber(*text);
  const bool sound = number && number->length == text->size() && std::fabs(number->value) <= bound;
  const std::string limit = std::to_string(static_cast<int>(bound));
  if (!sound) refuse(option, "a number from -" + limit + " to " + limit, *text);
}

std::optional<std::int32_t> checkedYear(const std::optional<std::string>& text) {
  if (!text) return std::nullopt;
  std::int32_t year = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), year);
  const bool whole = error == std::errc() && end == text->data() + text->size();
  if (!whole || year < FirstYear || year > LastYear) {
    refuse("--year", "a whole number from 1 to 9999", *text);
  }
  return year;
}

std::optional<CivilDay> checkedDate(const std::string& option,
                                    const std::optional<std::string>& text,
                                    const ShortDateForm& form) {
  if (!text) return std::nullopt;
  const auto day = readDate(*text, form);
  if (!day) refuse(option, "a date that exists, such as 2024-06-21", *text);
  return day;
}

}  // namespace

std::variant<CalendarRequest, CalendarExit> readCommandLine(int count, const char* const* arguments,
                                                            const ShortDateForm& form) {
  CalendarRequest request;
  std::optional<std::string> year;
  CLI::App app(Purpose, "veldrin-calendar");
  app.footer(Examples);
  app.set_version_flag("--version", "Veldrin v6");
  app.get_formatter()->column_width(28);
  app.add_option("--latitude", request.latitude, "degrees, north positive (47.5)")->type_name("D");
  app.add_option("--longitude", request.longitude, "degrees, east positive (-122.5)")
      ->type_name("D");
  app.add_option("--time-zone", request.timeZone,
                 "standard time in hours, east positive (this system's)")
      ->type_name("H");
  app.add_option("--year", year, "1 to 9999 (this year)")->type_name("N");
  app.add_flag("--dst,!--no-dst", request.daylightSaving, "daylight saving on or off (on)");
  app.add_option("--dst-start", request.firstBound, "its first day (that of the year)")
      ->type_name("DATE");
  app.add_option("--dst-end", request.secondBound, "the day after its last (that of the year)")
      ->type_name("DATE");
  app.add_flag("--down-under", request.downUnder, "a place on the southern half of the Earth");
  app.add_option("--output", request.output, "where; - is standard output (Veldrin.ics)")
      ->type_name("FILE");
  app.add_option("--status", request.statusDate,
                 "print the times of this day in place of a calendar")
      ->type_name("DATE");
  try {
    app.parse(count, arguments);
    checkNumber("--latitude", request.latitude, 90.0);
    checkNumber("--longitude", request.longitude, 180.0);
    checkNumber("--time-zone", request.timeZone, 24.0);
    request.year = checkedYear(year);
    checkedDate("--dst-start", request.firstBound, form);
    checkedDate("--dst-end", request.secondBound, form);
    if (const auto day = checkedDate("--status", request.statusDate, form)) {
      if (day->year < FirstYear || day->year > LastYear) {
        refuse("--status", "a date of the years 1 to 9999", *request.statusDate);
      }
      request.year = static_cast<std::int32_t>(day->year);
    }
    if (request.output.empty()) refuse("--output", "the name of a file", "");
    return request;
  } catch (const CLI::CallForHelp&) {
    return CalendarExit{0, helpOf(app)};
  } catch (const CLI::CallForVersion& version) {
    return CalendarExit{0, std::string(version.what()) + "\n"};
  } catch (const CLI::ParseError& error) {
    return CalendarExit{BadUsage, "veldrin-calendar: " + onOneLine(error.what()) +
                                      "; see veldrin-calendar --help.\n"};
  }
}

}  // namespace veldrin
