#pragma once

#include <optional>
#include <string_view>

#include "places/ZoneFolder.h"

namespace veldrin {

// The tables zone.tab and zone1970.tab of the time zone database:
//
//   row      = countries TAB latitude longitude TAB zone (TAB comment)? LF | "#" remark LF
//   latitude = sign degrees(2) minutes(2) seconds(2)?      ISO 6709
//   longitude = sign degrees(3) minutes(2) seconds(2)?

/// The town of a zone in the rows of a table; nothing if no row has the zone or the row is damaged.
std::optional<ZonePlace> placeInTable(std::string_view rows, std::string_view zone);

}  // namespace veldrin
