#pragma once

#include "apps/CalendarOptions.h"
#include "apps/PlaceOfRequest.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Writes the calendar of `--standard` or the picture of `--chart`, without a window. A stop signal
/// ends this before anything is written; the status is then 128 + the number of the signal.
RunOutcome runAlmanac(Host& host, const CalendarRequest& request, const PlaceOfRequest& place);

}  // namespace veldrin
