#include "apps/CalendarOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <map>
#include <system_error>
#include <vector>

#include "apps/PlainText.h"
#include "apps/ProgramMain.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"

namespace veldrin {
namespace {

constexpr std::int32_t FirstYear = 1;
constexpr std::int32_t LastYear = 9999;
// In the Gregorian calendar, with a new year of four digits behind it.
constexpr std::int32_t FirstStandardYear = 1583;
constexpr std::int32_t LastStandardYear = 9998;
constexpr std::int32_t MostMinutes = 24 * 60;

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
  veldrin-calendar --standard --latitude=40.7128 --longitude=-74.006 --time-zone=-5 \
      --year=2030 --place="New York" --twilight=civil --remind=15 --output=new-york-2030.ics
      a calendar with its moments in Universal Time, for a program of today

A DATE is 2024-06-21, or the short form of this system's date setting. South of the equator, where
daylight saving holds over the new year, --down-under takes the time outside the two dates.)";

/// The text, or its beginning where it is longer than what a person reads of it.
std::string shortened(const std::string& text, std::size_t most) {
  return text.size() > most ? text.substr(0, most) + "..." : text;
}

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
  throw CLI::ValidationError(option,
                             "needs " + needs + ", not \"" + shortened(given, Shown) + "\"");
}

void checkNumber(const std::string& option, const std::optional<std::string>& text, double bound) {
  if (!text) return;
  const auto number = readNumber(*text);
  const bool sound = number && number->length == text->size() && std::fabs(number->value) <= bound;
  const std::string limit = std::to_string(static_cast<int>(bound));
  if (!sound) refuse(option, "a number from -" + limit + " to " + limit, *text);
}

std::optional<std::int32_t> checkedWhole(const std::string& option,
                                         const std::optional<std::string>& text, std::int32_t least,
                                         std::int32_t most) {
  if (!text) return std::nullopt;
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  const bool whole = error == std::errc() && end == text->data() + text->size();
  if (!whole || number < least || number > most) {
    refuse(option, "a whole number from " + std::to_string(least) + " to " + std::to_string(most),
           *text);
  }
  return number;
}

std::optional<CivilDay> checkedDate(const std::string& option,
                                    const std::optional<std::string>& text,
                                    const ShortDateForm& form) {
  if (!text) return std::nullopt;
  const auto day = readDate(*text, form);
  if (!day) refuse(option, "a date that exists, such as 2024-06-21", *text);
  return day;
}

std::set<Twilight> checkedTwilights(const std::vector<std::string>& texts) {
  const std::map<std::string, Twilight> names{{"civil", Twilight::Civil},
                                              {"nautical", Twilight::Nautical},
                                              {"astronomical", Twilight::Astronomical}};
  std::set<Twilight> twilights;
  for (const std::string& text : texts) {
    const auto name = names.find(text);
    if (name == names.end()) refuse("--twilight", "civil, nautical or astronomical", text);
    twilights.insert(name->second);
  }
  return twilights;
}

std::string checkedPlace(const std::optional<std::string>& text) {
  if (!text) return "";
  if (text->empty() || !isPlainText(*text)) {
    refuse("--place", "a name in UTF-8 without control characters", *text);
  }
  return *text;
}

/// What `--standard` writes; nothing without it.
std::optional<AlmanacOptions> checkedStandard(bool isWanted,
                                              const std::optional<std::string>& place,
                                              const std::vector<std::string>& twilights,
                                              const std::optional<std::string>& reminder) {
  const auto needStandard = [isWanted](const char* option, bool isGiven) {
    if (isGiven && !isWanted) throw CLI::RequiresError(option, "--standard");
  };
  needStandard("--place", place.has_value());
  needStandard("--twilight", !twilights.empty());
  needStandard("--remind", reminder.has_value());
  if (!isWanted) return std::nullopt;
  return AlmanacOptions{checkedTwilights(twilights),
                        checkedWhole("--remind", reminder, 0, MostMinutes)};
}

}  // namespace

std::variant<CalendarRequest, RunOutcome> readCommandLine(int count, const char* const* arguments,
                                                          const ShortDateForm& form) {
  CalendarRequest request;
  std::optional<std::string> year;
  bool isStandard = false;
  std::optional<std::string> place;
  std::vector<std::string> twilights;
  std::optional<std::string> reminder;
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
  app.add_flag("--standard", isStandard, "write the calendar that today's programs take");
  constexpr const char* Group = "With --standard";
  app.add_option("--place", place, "its name (its coordinates)")->type_name("NAME")->group(Group);
  app.add_option("--twilight", twilights,
                 "civil, nautical or astronomical: its dawn and dusk too; may be repeated")
      ->type_name("KIND")
      ->allow_extra_args(false)
      ->group(Group);
  app.add_option("--remind", reminder, "an alarm so long before sunrise and sunset, 0 to 1440")
      ->type_name("MINUTES")
      ->group(Group);
  try {
    app.parse(count, arguments);
    if (isStandard && request.statusDate) throw CLI::ExcludesError("--status", "--standard");
    request.standard = checkedStandard(isStandard, place, twilights, reminder);
    request.place = checkedPlace(place);
    checkNumber("--latitude", request.latitude, 90.0);
    checkNumber("--longitude", request.longitude, 180.0);
    checkNumber("--time-zone", request.timeZone, 24.0);
    request.year = checkedWhole("--year", year, isStandard ? FirstStandardYear : FirstYear,
                                isStandard ? LastStandardYear : LastYear);
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
    return RunOutcome{.output = helpOf(app)};
  } catch (const CLI::CallForVersion& version) {
    return RunOutcome{.output = std::string(version.what()) + "\n"};
  } catch (const CLI::ParseError& error) {
    constexpr std::size_t Shown = 200;
    return RunOutcome{
        .status = Misused,
        .complaints = {shortened(error.what(), Shown) + "; see veldrin-calendar --help."}};
  }
}

}  // namespace veldrin
