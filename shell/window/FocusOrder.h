#pragma once

#include <vector>

#include "shell/window/RectControl.h"

namespace veldrin {

/// The controls of a window that can hold the keyboard focus, in the order in which the focus goes
/// through them: by `TabIndex` within a parent, a panel's controls in the panel's place.
std::vector<Ref<RectControl>> focusOrder(const Window& window);

}  // namespace veldrin
