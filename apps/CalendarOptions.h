#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "almanac/Almanac.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// The checked options of veldrin-calendar. The window reads every text below as the user meant it.
/// An option that was not given keeps the value of the window.
struct CalendarRequest {
  std::optional<std::string> town;   ///< gives place, coordinates and zone
  std::optional<std::string> towns;  ///< list the towns that this text may mean, and no more
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
  std::optional<std::string> statusDate;   ///< the panel of this day in place of a calendar
  std::optional<AlmanacOptions> standard;  ///< the other document, with all but its stamp
  std::optional<std::string> chart;        ///< the file of the picture; "-" is standard output
  std::string place;                       ///< its name, with `standard` or `chart`
};

/// Reads the command line. A wrong one gives the outcome of the program: one sentence and status 2;
/// `--help` and `--version` give their text. Dates are read in the host's form.
std::variant<CalendarRequest, RunOutcome> readCommandLine(int count, const char* const* arguments,
                                                          const ShortDateForm& form);

}  // namespace veldrin
