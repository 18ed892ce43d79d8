#pragma once

#include "apps/CalendarOptions.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Opens the window without a display and sets its controls as a user would. Then presses the
/// button or, for `statusDate`, reads the status panel.
RunOutcome runWindow(Host& host, const CalendarRequest& request);

}  // namespace veldrin
