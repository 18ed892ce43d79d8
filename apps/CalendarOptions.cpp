#include "apps/CalendarOptions.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <map>
#include <memory>
#include <vector>

#include "apps/ProgramMain.h"
#include "apps/WholeNumber.h"
#include "shell/host/PlainText.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"

namespace veldrin {
namespace {

constexpr std::int32_t FirstYear = 1;
constexpr std::int32_t LastYear = 9999;
// The Gregorian calendar began in 1582. In UTC, the last local day may reach into the year 9999.
constexpr std::int32_t FirstStandardYear = 1583;
constexpr std::int32_t LastStandardYear = 9998;
constexpr std::int32_t MostMinutes = 24 * 60;
constexpr std::int32_t MostYears = 100;

constexpr const char* Purpose =
    "Writes the times of sunrise and sunset of a year at a place into a calendar or a picture.";

constexpr const char* Examples = R"(Examples:
  veldrin-calendar --standard --town=Freiburg
      write this year's calendar of Freiburg into Veldrin.ics, for your calendar program
  veldrin-calendar --chart=year.svg --town="Springfield, Illinois"
      draw this year in Springfield into year.svg; a web browser shows it
  veldrin-calendar --town=Berlin --status=2030-06-21
      print the times of one day
  veldrin-calendar --standard --zone=Europe/Oslo --latitude=69.6492 --longitude=18.9553 \
      --place="Behind the fjord" --twilight=civil --remind=15 --year=2030 --years=3
      write three years of a place that is not a town
  veldrin-calendar --latitude=-33.87 --longitude=151.21 --time-zone=10 --down-under \
      --year=2030 --dst-start=2030-04-07 --dst-end=2030-10-06 --output=sydney-2030.ics
      write the calendar that the window writes, by numbers

Without --standard, the times have no time zone: calendar programs show them unchanged in any zone.
Without a town, a zone and --time-zone, the clock is the standard time of this computer, even if
the coordinates are elsewhere. A FILE named - is standard output. A DATE is 2024-06-21, or a short
date as this computer writes it. Exit status: 0 for success, 1 if the output could not be written or
--towns found none, 2 for invalid options or an unknown town or zone.)";

/// Formats the name and the type of an option for the help. Leaves out CLI11's notes on excluded
/// options and on the values of flags.
class PlainFormatter final : public CLI::Formatter {
 public:
  std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
    constexpr std::string_view Mark = "{false}";
    std::string name = CLI::Formatter::make_option_name(option, isPositional);
    if (const std::size_t at = name.find(Mark); at != std::string::npos)
      name.erase(at, Mark.size());
    return name;
  }
  std::string make_option_opts(const CLI::Option* option) const override {
    return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
  }
};

/// Throws an error with one sentence about the value of an option. `readCommandLine` catches it.
[[noreturn]] void refuse(const std::string& option, const std::string& needs,
                         const std::string& given) {
  constexpr std::size_t Shown = 60;
  throw CLI::ValidationError(option,
                             "needs " + needs + ", not \"" + shortened(given, Shown) + "\"");
}

void checkNumber(const std::string& option, const std::optional<std::string>& text, double bound) {
  if (!text) return;
  const auto number = readNumber(*text);
  const bool isValid =
      number && number->length == text->size() && std::fabs(number->value) <= bound;
  const std::string limit = std::to_string(static_cast<int>(bound));
  if (!isValid) refuse(option, "a number from -" + limit + " to " + limit, *text);
}

std::optional<std::int32_t> checkedWhole(const std::string& option,
                                         const std::optional<std::string>& text, std::int32_t least,
                                         std::int32_t most) {
  if (!text) return std::nullopt;
  const auto number = readWholeNumber(*text, least, most);
  if (!number) {
    refuse(option, "a whole number from " + std::to_string(least) + " to " + std::to_string(most),
           *text);
  }
  return static_cast<std::int32_t>(*number);
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

/// Refuses "--option=" without a value: CLI11 would take the next argument as the value.
void refuseEmptyValues(int count, const char* const* arguments) {
  for (int index = 1; index < count; ++index) {
    const std::string_view argument = arguments[index];
    if (!argument.starts_with("--") || argument.find('=') + 1 != argument.size()) continue;
    refuse(std::string(argument.substr(0, argument.size() - 1)), "a value", "");
  }
}

/// Reads the options as texts, then checks them and completes the request.
class CommandLine {
 public:
  explicit CommandLine(CalendarRequest& request) : request_(request) {
    app.footer(Examples);
    app.set_version_flag("--version", "Veldrin v" VELDRIN_VERSION);
    app.formatter(std::make_shared<PlainFormatter>());
    app.get_formatter()->column_width(28);
    addPlace();
    addDocuments();
    addStandard();
    addNumbers();
  }

  /// Checks every option and completes the request. Throws `CLI::ParseError` for an invalid option.
  void check(const ShortDateForm& form);

  CLI::App app{Purpose, "veldrin-calendar"};

 private:
  void addPlace();
  void addDocuments();
  void addStandard();
  void addNumbers();
  void checkPlace();
  void checkDocuments();
  void checkYears(const ShortDateForm& form);

  CLI::Option* text(const char* name, std::optional<std::string>& value, const char* help,
                    const char* type, const char* group) {
    return app.add_option(name, value, help)->type_name(type)->group(group);
  }
  [[nodiscard]] bool needsGregorian() const { return isStandard_ || request_.chart; }

  CalendarRequest& request_;
  std::optional<std::string> year_;
  std::optional<std::string> years_;
  bool isStandard_ = false;
  std::optional<std::string> place_;
  std::vector<std::string> twilights_;
  std::optional<std::string> reminder_;
  CLI::Option* town_ = nullptr;
  CLI::Option* zone_ = nullptr;
  CLI::Option* chart_ = nullptr;
};

void CommandLine::addPlace() {
  constexpr const char* Group = "The place";
  town_ = text("--town", request_.town, "take the coordinates, time zone and name of this town",
               "NAME", Group);
  text("--towns", request_.towns, "list the towns whose names begin with this text, and exit",
       "TEXT", Group);
  zone_ =
      text("--zone", request_.zone,
           "take this time zone: Europe/Oslo, oslo, or here for this computer's", "NAME", Group);
  auto* const latitude =
      text("--latitude", request_.latitude,
           "degrees, north positive (default: the zone's town, else 47.5)", "D", Group);
  auto* const longitude =
      text("--longitude", request_.longitude,
           "degrees, east positive (default: the zone's town, else -122.5)", "D", Group);
  text("--place", place_, "the name of the place, for --standard and --chart", "NAME", Group);
  town_->excludes(zone_)->excludes(latitude)->excludes(longitude);
}

void CommandLine::addDocuments() {
  constexpr const char* Group = "What to write";
  auto* const standard =
      app.add_flag("--standard", isStandard_, "write a calendar for current calendar programs")
          ->group(Group);
  chart_ = text("--chart", request_.chart, "draw the year as an SVG picture into this file", "FILE",
                Group);
  auto* const status =
      text("--status", request_.statusDate, "print the times of this day", "DATE", Group);
  auto* const output = app.add_option("--output", request_.output,
                                      "write the calendar into this file (default: Veldrin.ics)")
                           ->type_name("FILE")
                           ->group(Group);
  text("--year", year_, "1 to 9999 (default: this year)", "N", Group);
  chart_->excludes(output)->excludes(status)->excludes(standard);
  status->excludes(standard);
}

void CommandLine::addStandard() {
  constexpr const char* Group = "With --standard";
  auto* const twilight =
      app.add_option("--twilight", twilights_,
                     "add dawn and dusk: civil, nautical or astronomical; repeatable")
          ->type_name("KIND")
          ->allow_extra_args(false)
          ->group(Group);
  auto* const reminder = text(
      "--remind", reminder_,
      "add an alarm this many minutes before each sunrise and sunset, 0 to 1440", "MINUTES", Group);
  auto* const years =
      text("--years", years_, "write this many years, 1 to 100 (default: 1)", "N", Group);
  chart_->excludes(twilight)->excludes(reminder)->excludes(years);
}

void CommandLine::addNumbers() {
  constexpr const char* Group = "The clock by numbers";
  std::vector<CLI::Option*> all;
  all.push_back(text("--time-zone", request_.timeZone,
                     "standard time in hours, east positive (default: this computer's)", "H",
                     Group));
  all.push_back(app.add_flag("--dst,!--no-dst", request_.daylightSaving,
                             "daylight saving on or off (default: on)")
                    ->group(Group));
  all.push_back(text("--dst-start", request_.firstBound,
                     "first day of daylight saving (default: second Sunday of March)", "DATE",
                     Group));
  all.push_back(text("--dst-end", request_.secondBound,
                     "day after its last day (default: first Sunday of November)", "DATE", Group));
  all.push_back(app.add_flag("--down-under", request_.downUnder,
                             "daylight saving is outside these dates, as in the south")
                    ->group(Group));
  for (CLI::Option* const option : all) {
    zone_->excludes(option);
    town_->excludes(option);
  }
}

void CommandLine::checkPlace() {
  if (place_ && !needsGregorian()) throw CLI::RequiresError("--place", "--standard or --chart");
  request_.place = checkedPlace(place_);
  if (request_.zone && request_.latitude.has_value() != request_.longitude.has_value()) {
    const bool hasLatitude = request_.latitude.has_value();
    throw CLI::RequiresError(hasLatitude ? "--latitude" : "--longitude",
                             hasLatitude ? "--longitude" : "--latitude");
  }
  checkNumber("--latitude", request_.latitude, 90.0);
  checkNumber("--longitude", request_.longitude, 180.0);
  checkNumber("--time-zone", request_.timeZone, 24.0);
}

void CommandLine::checkDocuments() {
  const auto needStandard = [this](const char* option, bool isGiven) {
    if (isGiven && !isStandard_) throw CLI::RequiresError(option, "--standard");
  };
  needStandard("--twilight", !twilights_.empty());
  needStandard("--remind", reminder_.has_value());
  needStandard("--years", years_.has_value());
  if (isStandard_) {
    request_.standard = AlmanacOptions{checkedTwilights(twilights_),
                                       checkedWhole("--remind", reminder_, 0, MostMinutes)};
  }
  if (request_.output.empty()) refuse("--output", "the name of a file", "");
  if (request_.chart && request_.chart->empty()) refuse("--chart", "the name of a file", "");
}

void CommandLine::checkYears(const ShortDateForm& form) {
  request_.year = checkedWhole("--year", year_, needsGregorian() ? FirstStandardYear : FirstYear,
                               needsGregorian() ? LastStandardYear : LastYear);
  request_.years = checkedWhole("--years", years_, 1, MostYears).value_or(1);
  if (request_.year && *request_.year + request_.years - 1 > LastStandardYear && years_) {
    refuse("--years", "a last year of 9998 at most", *years_);
  }
  checkedDate("--dst-start", request_.firstBound, form);
  checkedDate("--dst-end", request_.secondBound, form);
  const auto day = checkedDate("--status", request_.statusDate, form);
  if (!day) return;
  if (day->year < FirstYear || day->year > LastYear) {
    refuse("--status", "a date of the years 1 to 9999", *request_.statusDate);
  }
  request_.year = static_cast<std::int32_t>(day->year);
}

void CommandLine::check(const ShortDateForm& form) {
  checkDocuments();
  checkPlace();
  checkYears(form);
}

}  // namespace

std::variant<CalendarRequest, RunOutcome> readCommandLine(int count, const char* const* arguments,
                                                          const ShortDateForm& form) {
  CalendarRequest request;
  CommandLine line(request);
  try {
    refuseEmptyValues(count, arguments);
    line.app.parse(count, arguments);
    line.check(form);
    return request;
  } catch (const CLI::CallForHelp&) {
    return RunOutcome{.output = line.app.help()};
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
