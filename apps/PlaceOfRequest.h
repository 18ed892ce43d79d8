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
  std::string town;                 ///< the full name of the town that was meant, empty for none
  std::string zone;                 ///< the full name of the zone
  std::optional<ClockRules> clock;  ///< the clock of the zone in the years asked for
};

/// Looks up the town or the zone of a request and completes the request: coordinates, the place's
/// name, and for the window the fields of its clock. Throws `PlaceFault` with one sentence for what
/// is not known or what the fields cannot say.
PlaceOfRequest lookUpPlace(Host& host, CalendarRequest& request);

/// The towns that a text may mean, most people first: full name, coordinates and zone, with tabs
/// between them, one a line. Nothing found is status 1. Throws `PlaceFault` if the text cannot be a
/// name.
RunOutcome listTowns(const std::string& text);

/// The year of the request, or else this year.
std::int32_t yearOf(const Host& host, const CalendarRequest& request);

}  // namespace veldrin
