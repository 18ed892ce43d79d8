#pragma once

#include "shell/Stop.h"
#include "shell/Toolkit.h"

namespace veldrin {

namespace detail {
/// The toolkit of the runtime that exists; nil without one.
inline Toolkit* yieldingToolkit = nullptr;
}  // namespace detail

/// Lets the toolkit repaint, and never delivers what a user does, so no handler runs inside
/// another. For what must not be left half done; elsewhere it is `RuntimeBackgroundTask`.
inline void repaint() {
  detail::yieldingToolkit->backgroundTask();
}

/// The cooperative yield: every loop calls it once in each pass, at the end of the pass. It lets
/// the toolkit repaint, and raises `EndException`, once, where the system has asked the process to
/// end.
inline void RuntimeBackgroundTask() {
  repaint();
  if (stopIsPending()) raiseStop();
}

}  // namespace veldrin
