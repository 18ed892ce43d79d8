#pragma once

#include "apps/CalendarOptions.h"
#include "apps/PlaceOfRequest.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Writes the calendar of `--standard` or the picture of `--chart`. It opens no window. A stop
/// signal ends it with nothing written; the status is then 128 and the number of the signal.
RunOutcome runAlmanac(Host& host, const CalendarRequest& request, const PlaceOfRequest& place);

}  // namespace veldrin
