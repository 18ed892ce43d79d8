#pragma once

#include "shell/host/StopSignal.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// Lets the toolkit repaint. Never delivers user input, so handlers do not nest. Ignores stop
/// signals: use it for work that must not be interrupted, and `RuntimeBackgroundTask` in all other
/// loops.
inline void yieldToToolkit() {
  InForce<Toolkit>::get().backgroundTask();
}

/// The cooperative yield. Call it at the end of each pass of a loop. Lets the toolkit repaint, and
/// raises `EndException` once after a stop signal.
inline void RuntimeBackgroundTask() {
  yieldToToolkit();
  if (isStopPending()) raiseStop();
}

}  // namespace veldrin
