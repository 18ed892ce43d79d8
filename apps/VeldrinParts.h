#pragma once

#include "shell/Process.h"

namespace veldrin {

/// The callbacks of the application, for veldrin and for veldrin-calendar.
extern const ApplicationParts VeldrinParts;

/// `% initialize`: builds all classes in their fixed order. A class follows the classes that it
/// needs; `DragItem` and `Window` are first, `Veldrin`, `App` and `MenuBar1` last.
void initializeClasses();

/// `% finalize`: releases the eight globals of the program in their fixed order. Three of them are
/// maps of reflection; the other maps of reflection are released after these three.
void finalizeGlobals();

}  // namespace veldrin
