#pragma once

namespace veldrin {

/// Builds the class tables of the framework, each class after its base, `DragItem` and `Window`
/// first.
void initializeShellClasses();

}  // namespace veldrin
