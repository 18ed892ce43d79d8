#pragma once

#include "apps/CalendarOptions.h"
#include "apps/PlaceOfRequest.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Writes the calendar of `--standard` or the picture of `--chart`, without a window. After a stop
/// signal during the calculation, writes nothing and returns the status 128 + the signal number.
RunOutcome runAlmanac(Host& host, const CalendarRequest& request, const PlaceOfRequest& place);

}  // namespace veldrin
