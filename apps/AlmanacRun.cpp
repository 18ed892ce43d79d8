#include "apps/AlmanacRun.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "almanac/Almanac.h"
#include "apps/StandardOutput.h"
#include "apps/WholeNumber.h"
#include "chart/Chart.h"
#include "civiltime/DaylightSavings.h"
#include "daystatus/FormTable.h"
#include "shell/files/FileReplacement.h"
#include "shell/files/FilesRoom.h"
#include "shell/host/StopSignal.h"
#include "shell/values/ParseDate.h"
#include "shell/values/Text.h"

namespace veldrin {
namespace {

/// The time stamp of a document, in seconds since 1970: the environment variable SOURCE_DATE_EPOCH,
/// for reproducible builds, else the current time. A value of the variable that is invalid or after
/// the year 9999 is ignored.
std::int64_t stampOf(const Host& host) {
  constexpr std::int64_t LastSecond = 253402300799;
  const char* const setting = std::getenv("SOURCE_DATE_EPOCH");
  const auto seconds = setting == nullptr ? std::nullopt : readWholeNumber(setting, 0, LastSecond);
  return seconds.value_or(host.now());
}

/// A number of the request; by default, the number that `FormTable` gives the control.
double numberOr(const std::optional<std::string>& text, std::string_view control) {
  const auto* const row = std::ranges::find(FormTable, control, &ControlRow::name);
  return Val(String(text ? std::string_view(*text) : row->text));
}

/// The standard time of the request in hours; by default, as a new window shows it.
double zoneOf(const Host& host, const CalendarRequest& request) {
  if (request.timeZone) return Val(String(*request.timeZone));
  const Ref<Date> today = New<Date>();
  const civiltime::SavingDays period = civiltime::defaultDays(today->Year());
  const auto day = static_cast<double>(dayNumber(today->Year(), today->Month(), today->Day()));
  const bool isSaving = civiltime::isDaylightSavingsTime(day, static_cast<double>(period.first),
                                                         static_cast<double>(period.second), false);
  return civiltime::standardZone(host.offsetAt(host.now()), isSaving);
}

std::optional<civiltime::SavingDays> periodOf(const Host& host, const CalendarRequest& request,
                                              std::int32_t year) {
  if (!request.daylightSaving) return std::nullopt;
  civiltime::SavingDays period = civiltime::defaultDays(year);
  const auto take = [&](const std::optional<std::string>& text, std::int64_t& day) {
    const auto date = text ? readDate(*text, host.shortDateForm()) : std::nullopt;
    if (date) day = dayNumber(date->year, date->month, date->day);
  };
  take(request.firstBound, period.first);
  take(request.secondBound, period.second);
  period.downUnder = request.downUnder;
  return period;
}

/// The clock in each year of the request: from the rules of its zone if any, else from its numbers.
std::vector<ClockYear> clockYears(const Host& host, const CalendarRequest& request,
                                  const PlaceOfRequest& place) {
  std::vector<ClockYear> years;
  const std::int32_t first = yearOf(host, request);
  for (std::int32_t year = first; year < first + request.years; ++year) {
    years.push_back({year, place.clock
                               ? *place.clock
                               : civiltime::clockRules(zoneOf(host, request),
                                                       periodOf(host, request, year), year)});
  }
  return years;
}

void yieldToStopSignal() {
  if (isStopPending()) raiseStop();
}

/// The zone as text for the user: its name, or its hours such as "UTC-8".
std::string zoneInWords(const Host& host, const CalendarRequest& request,
                        const PlaceOfRequest& found) {
  if (!found.zone.empty()) return found.zone;
  const double zone = zoneOf(host, request);
  std::array<char, 32> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::fabs(zone));
  return std::string(zone < 0.0 ? "UTC-" : "UTC+") + std::string(digits.data(), end);
}

/// Composes the picture or the calendar.
std::string documentOf(const Host& host, const CalendarRequest& request,
                       const PlaceOfRequest& found) {
  const Place place{request.place, numberOr(request.latitude, "Latitude"),
                    numberOr(request.longitude, "Longitude")};
  const std::vector<ClockYear> years = clockYears(host, request, found);
  if (request.chart) {
    return chart(place, zoneInWords(host, request, found), years.front(), yieldToStopSignal);
  }
  AlmanacOptions options = *request.standard;
  options.stamp = stampOf(host);
  return almanac(place, years, options, yieldToStopSignal);
}

/// Writes the document to a file or to standard output. If that fails, an old file is unchanged.
void write(const std::string& document, const std::string& output, RunOutcome& outcome) {
  if (output == "-") {
    const Ref<StandardOutput> item = New<StandardOutput>();
    outcome.noteWriting(std::string(item->AbsolutePath().view()), writeThrough(*item, document));
    return;
  }
  const Ref<FolderItem> item = FolderItem::atPath(String(output));
  outcome.noteWriting(std::string(item->AbsolutePath().view()), replaceFile(output, document));
}

}  // namespace

RunOutcome runAlmanac(Host& host, const CalendarRequest& request, const PlaceOfRequest& place) {
  constexpr int SignalBase = 128;  // as in shells
  const InForce<Host> scope(host);
  const FilesRoom files;
  const StopSignalGuard stopSignals;
  RunOutcome outcome;
  try {
    write(documentOf(host, request, place), request.chart.value_or(request.output), outcome);
  } catch (const Raised& raised) {
    if (!RuntimeObjectIsa(raised.exception.get(), EndException::__Lookup())) throw;
    outcome.status = SignalBase + stopSignal();
  }
  return outcome;
}

}  // namespace veldrin
