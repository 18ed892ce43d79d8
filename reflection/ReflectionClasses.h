#pragma once

namespace veldrin {

/// Builds every class of the reflection, bases first.
void initializeReflectionClasses();

}  // namespace veldrin
