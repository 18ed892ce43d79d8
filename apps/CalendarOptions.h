#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "almanac/Almanac.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// The checked options of veldrin-calendar. A text that is the content of a field of the window
/// stays a text. Without its option, a field keeps the value of the window.
struct CalendarRequest {
  std::optional<std::string> town;   ///< gives place, coordinates and zone
  std::optional<std::string> towns;  ///< only list the towns of this text
  std::optional<std::string> zone;   ///< of the time zone database; gives the clock
  std::optional<std::string> latitude;
  std::optional<std::string> longitude;
  std::optional<std::string> timeZone;
  std::optional<std::int32_t> year;  ///< [1:9999], with `standard` or `chart` [1583:9998]
  std::int32_t years = 1;            ///< [1:100], the last at most 9998
  bool daylightSaving = true;
  std::optional<std::string> firstBound;
  std::optional<std::string> secondBound;
  bool downUnder = false;
  std::string output = "Veldrin.ics";      ///< "-" is standard output
  std::optional<std::string> statusDate;   ///< print the panel of this day, write no calendar
  std::optional<AlmanacOptions> standard;  ///< without the stamp
  std::optional<std::string> chart;        ///< the file of the picture; "-" is standard output
  std::string place;                       ///< its name, with `standard` or `chart`
};

/// Reads the command line. Returns the outcome of the whole program for invalid options (one
/// sentence and status 2), `--help` and `--version`. `form` is how the host writes a short date.
std::variant<CalendarRequest, RunOutcome> readCommandLine(int count, const char* const* arguments,
                                                          const ShortDateForm& form);

}  // namespace veldrin
