#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "civiltime/ClockRules.h"
#include "places/ZoneFolder.h"

namespace veldrin {

/// A zone of the time zone database, with its rules for some years.
///
///     const ZoneFolder folder = ZoneFolder::ofMachine();
///     const Zone oslo = zoneNamed(folder, "oslo", 2026, 2026);   // its name is "Europe/Oslo"
///     formClock(oslo.name, oslo.rules, 2026).zone;               // "1"
struct Zone {
  std::string name;
  ClockRules rules;
};

/// The zone that a user names: `text` is a text for `ZoneFolder::find`, or "here" for the zone of
/// this computer. Throws `PlaceFault` if there is no such zone or its file cannot be used.
Zone zoneNamed(const ZoneFolder& folder, std::string_view text, std::int64_t firstYear,
               std::int64_t lastYear);

}  // namespace veldrin
