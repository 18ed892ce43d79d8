#pragma once

namespace veldrin {

/// Builds all reflection classes, bases first.
void initializeReflectionClasses();

}  // namespace veldrin
