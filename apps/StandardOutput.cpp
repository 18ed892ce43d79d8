#include "apps/StandardOutput.h"

#include <unistd.h>

#include <cerrno>

namespace veldrin {

std::unique_ptr<WritableFile> StandardOutput::create() {
  const int descriptor = ::dup(STDOUT_FILENO);
  LastErrorCode = descriptor < 0 ? errno : 0;
  return descriptor < 0 ? nullptr : openDescriptor(descriptor);
}

}  // namespace veldrin
