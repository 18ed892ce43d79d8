#pragma once

#include "daystatus/Veldrin.h"
#include "shell/window/Control.h"

namespace veldrin {

/// The bare function that is installed at a control for a method of the window: it is called with
/// the control, and its first step makes the window its object.
template <void (Veldrin::*Method)()>
void controlHandler(Object* control) {
  Ref<Object> Self(control);
  Ref<Object> Me;
  RuntimeSwapSelfAndMe(Self, Me);
  (*CheckCast<Veldrin>(Self).*Method)();
}

}  // namespace veldrin
