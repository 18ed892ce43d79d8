#pragma once

namespace veldrin {

/// Builds the records of all reflection classes, bases first.
void initializeReflectionClasses();

}  // namespace veldrin
