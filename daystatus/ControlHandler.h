#pragma once

#include "daystatus/Veldrin.h"
#include "shell/window/Control.h"

namespace veldrin {

/// Adapts a method of the window to an event handler of a control. The framework calls the handler
/// with the control; the handler calls the method on the control's window.
template <void (Veldrin::*Method)()>
void controlHandler(Object* control) {
  Ref<Object> Self(control);
  Ref<Object> Me;
  RuntimeSwapSelfAndMe(Self, Me);
  (*CheckCast<Veldrin>(Self).*Method)();
}

}  // namespace veldrin
