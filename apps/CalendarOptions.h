#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "almanac/Almanac.h"
#include "shell/Host.h"

namespace veldrin {

/// What the companion was asked for, checked: every text below is one that the window reads as the
/// user meant it. Nothing given is nothing changed.
struct CalendarRequest {
  std::optional<std::string> latitude;
  std::optional<std::string> longitude;
  std::optional<std::string> timeZone;
  std::optional<std::int32_t> year;  ///< [1:9999], with `standard` [1583:9998]
  bool daylightSaving = true;
  std::optional<std::string> firstBound;
  std::optional<std::string> secondBound;
  bool downUnder = false;
  std::string output = "Veldrin.ics";      ///< "-" is standard output
  std::optional<std::string> statusDate;   ///< the panel of this day in place of a calendar
  std::optional<AlmanacOptions> standard;  ///< the other document, with all but its stamp
};

/// The end of the program before anything was done: what it says, and its exit status. A status
/// other than 0 belongs to the errors.
struct CalendarExit {
  int status;
  std::string text;
};

/// Reads the command line. Whatever is wrong with it comes back as one sentence and status 2; dates
/// are read in the host's form.
std::variant<CalendarRequest, CalendarExit> readCommandLine(int count, const char* const* arguments,
                                                            const ShortDateForm& form);

}  // namespace veldrin
