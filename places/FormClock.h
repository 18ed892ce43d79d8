#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "civiltime/ClockRules.h"
#include "shell/host/Civil.h"

namespace veldrin {

/// A period of daylight saving as the window's form says it: from the first day up to the second,
/// which is no longer part of it; with `isDownUnder` all other days of the year instead.
struct SavingDates {
  CivilDay first;
  CivilDay second;
  bool isDownUnder;

  bool operator==(const SavingDates&) const = default;
};

/// The clock of a year as the window's form says it.
struct FormClock {
  /// Hours of standard time from Greenwich, east positive: the shortest text that reads back as the
  /// same number, such as "5.5".
  std::string zone;
  std::optional<SavingDates> saving;  ///< nothing for a year without daylight saving

  bool operator==(const FormClock&) const = default;
};

/// What the form has to say for a zone in a year, by the offsets at the local noon of each day: the
/// lower one is standard time, the one an hour ahead daylight saving. A period up to the end of the
/// year ends on January 1 of the next. Throws `PlaceFault`, which names the zone, for a year that
/// two dates and one hour cannot describe.
FormClock formClock(std::string_view zoneName, const ClockRules& rules, std::int64_t year);

}  // namespace veldrin
