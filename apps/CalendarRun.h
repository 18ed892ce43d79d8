#pragma once

#include "apps/CalendarOptions.h"
#include "apps/RunOutcome.h"
#include "shell/host/Host.h"

namespace veldrin {

/// Opens the window without a screen, sets its controls like a user, and presses the button or
/// reads the status panel.
RunOutcome runWindow(Host& host, const CalendarRequest& request);

}  // namespace veldrin
