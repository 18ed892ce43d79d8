#pragma once

#include "shell/Process.h"

namespace veldrin {

/// The application as both programs start it.
extern const ApplicationParts VeldrinParts;

/// `% initialize`: builds every class of the system. The order is fixed: a class follows those that
/// it needs, `DragItem` and `Window` stand first, `Veldrin`, `App` and `MenuBar1` last.
void initializeClasses();

/// `% finalize`: releases the eight globals of the program in their order, each of which is an
/// owning reference; with the three of the reflection goes what it has noted besides.
void finalizeGlobals();

}  // namespace veldrin
