#pragma once

#include <vector>

#include "shell/window/RectControl.h"

namespace veldrin {

/// The controls of a window that can get the keyboard focus, in focus order: by `TabIndex` within a
/// parent, the children of a panel at the panel's position.
std::vector<Ref<RectControl>> focusOrder(const Window& window);

}  // namespace veldrin
