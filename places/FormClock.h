#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "civiltime/ClockRules.h"
#include "shell/host/Civil.h"

namespace veldrin {

/// Daylight saving in the fields of the form: from the day `first` to the day before `second`, or,
/// if `isDownUnder`, on all other days of the year.
struct SavingDates {
  CivilDay first;
  CivilDay second;
  bool isDownUnder;

  bool operator==(const SavingDates&) const = default;
};

/// The clock of a year in the fields of the form.
struct FormClock {
  /// Standard time in hours, east positive: the shortest text of the number, such as "5.5".
  std::string zone;
  std::optional<SavingDates> saving;  ///< nothing in a year without daylight saving

  bool operator==(const FormClock&) const = default;
};

/// The clock of a zone in a year, from the UTC offset at local noon of each day. The smaller offset
/// is standard time; one hour more is daylight saving. A period that lasts until the end of the
/// year ends on January 1 of the next. Throws `PlaceFault` if two dates and one hour cannot
/// describe the year.
FormClock formClock(std::string_view zoneName, const ClockRules& rules, std::int64_t year);

}  // namespace veldrin
