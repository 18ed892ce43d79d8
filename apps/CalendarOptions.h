#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "almanac/Almanac.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// The checked options of veldrin-calendar. Values for the window's text fields stay texts. A text
/// field without an option keeps its value.
struct CalendarRequest {
  std::optional<std::string> town;   ///< gives name, coordinates and zone
  std::optional<std::string> towns;  ///< only list the towns it may mean
  std::optional<std::string> zone;   ///< a time zone or "here"; gives the clock
  std::optional<std::string> latitude;
  std::optional<std::string> longitude;
  std::optional<std::string> timeZone;  ///< standard time, in hours
  std::optional<std::int32_t> year;     ///< [1:9999], with `standard` or `chart` [1583:9998]
  std::int32_t years = 1;               ///< a count [1:100]; the last year is at most 9998
  bool daylightSaving = true;
  std::optional<std::string> firstBound;
  std::optional<std::string> secondBound;
  bool downUnder = false;
  std::string output = "Veldrin.ics";      ///< "-" is standard output
  std::optional<std::string> statusDate;   ///< print the panel of this day, write no calendar
  std::optional<AlmanacOptions> standard;  ///< `AlmanacRun` sets `stamp`
  std::optional<std::string> chart;        ///< the file of the picture; "-" is standard output
  std::string place;                       ///< the place's name, for `standard` or `chart`
};

/// Reads the command line. Returns the outcome of the whole program for invalid options (one
/// sentence and status 2), `--help` and `--version`. `form` is how the host writes a short date.
std::variant<CalendarRequest, RunOutcome> readCommandLine(int count, const char* const* arguments,
                                                          const ShortDateForm& form);

}  // namespace veldrin
