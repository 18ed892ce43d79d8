#include "shell/MethodShape.h"

#include "shell/Failure.h"

namespace veldrin {

void detail::raiseOutOfBounds() {
  Raise<OutOfBoundsException>();
}

}  // namespace veldrin
