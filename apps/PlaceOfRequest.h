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
  std::string zone;                 ///< full name; empty if the request has neither
  std::optional<ClockRules> clock;  ///< the zone's clock in the years of the request
};

/// Looks up the town or the zone of a request. Sets the coordinates and the name of the place in
/// the request and, for the window, the fields of the clock. Throws `PlaceFault` if the town or the
/// zone is unknown, or if the fields cannot describe the clock.
PlaceOfRequest lookUpPlace(Host& host, CalendarRequest& request);

/// Lists the towns of a text, largest first, one a line: full name, coordinates and zone, separated
/// by tabs. The status is `Failed` if there are none. Throws `PlaceFault` if the text cannot be a
/// name.
RunOutcome listTowns(const std::string& text);

/// The year of the request; by default, this year.
std::int32_t yearOf(const Host& host, const CalendarRequest& request);

}  // namespace veldrin
