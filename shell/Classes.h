#pragma once

namespace veldrin {

/// Builds the records of the framework's classes: `DragItem` and `Window` first, and each class
/// after its base.
void initializeShellClasses();

}  // namespace veldrin
