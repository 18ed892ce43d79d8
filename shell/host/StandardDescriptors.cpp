#include "shell/host/StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace veldrin {

void openStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) >= 0) continue;
    // The lowest number that is free is this one. The mode is the one that its stream has no use
    // for.
    ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace veldrin
