#pragma once

#include "shell/host/StopSignal.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// Lets the toolkit repaint. It never delivers user input, so no handler runs inside another. For
/// work that must not be left half done; all other loops use `RuntimeBackgroundTask`.
inline void yieldToToolkit() {
  InForce<Toolkit>::get().backgroundTask();
}

/// The cooperative yield. Every loop calls it once in each pass, at the end of the pass. It lets
/// the toolkit repaint, and raises `EndException`, once, after a stop signal.
inline void RuntimeBackgroundTask() {
  yieldToToolkit();
  if (isStopPending()) raiseStop();
}

}  // namespace veldrin
