#pragma once

#include <optional>
#include <string>

#include "apps/CalendarOptions.h"
#include "apps/RunOutcome.h"
#include "civiltime/ClockRules.h"
#include "shell/host/Host.h"

namespace veldrin {

/// The result of looking up the town or the zone of a request.
struct PlaceOfRequest {
  std::string town;                 ///< full name; empty if the request has no town
  std::string zone;                 ///< full name; empty if the request has neither town nor zone
  std::optional<ClockRules> clock;  ///< in the years of the request; nothing without a zone
};

/// Looks up the town or the zone of a request. If the request has no coordinates, sets them and a
/// missing name. For the window, sets the fields of the clock. Throws `PlaceFault` if the town, the
/// zone or the coordinates are unknown, or if the fields cannot describe the clock.
PlaceOfRequest lookUpPlace(Host& host, CalendarRequest& request);

/// Lists the towns of `townsListed`, largest first, one per line: full name, coordinates and zone,
/// separated by tabs. The status is `Failed` if there are none. Throws `PlaceFault` if the text
/// cannot be a name.
RunOutcome listTowns(const std::string& text);

/// The year of the request; by default, this year.
std::int32_t yearOf(const Host& host, const CalendarRequest& request);

}  // namespace veldrin
