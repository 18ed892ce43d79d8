#pragma once

#include "apps/CalendarOptions.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Writes the calendar of `--standard`. It opens no window.
RunOutcome runStandard(Host& host, const CalendarRequest& request);

}  // namespace veldrin
