#include "shell/objects/MethodShape.h"

#include "shell/objects/Failure.h"

namespace veldrin {

void detail::raiseOutOfBounds() {
  Raise<OutOfBoundsException>();
}

}  // namespace veldrin
