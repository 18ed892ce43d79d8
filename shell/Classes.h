#pragma once

namespace veldrin {

/// Builds every class of the shell, each behind those that it needs, `DragItem` and `Window` first.
void initializeShellClasses();

}  // namespace veldrin
