#pragma once

#include "shell/Process.h"

namespace veldrin {

/// The application that both programs start.
extern const ApplicationParts VeldrinParts;

/// `% initialize`: builds all classes in their fixed order. A class follows those that it needs;
/// `DragItem` and `Window` are first, `Veldrin`, `App` and `MenuBar1` last.
void initializeClasses();

/// `% finalize`: releases the eight globals of the program in their fixed order. After the three of
/// reflection it also releases the other maps of reflection.
void finalizeGlobals();

}  // namespace veldrin
