#include "shell/files/FilesRoom.h"

#include <csignal>

#include "shell/files/FileType.h"

namespace veldrin {

FilesRoom::FilesRoom() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
  createFileTypes();
}

FilesRoom::~FilesRoom() {
  releaseFileTypes();
}

}  // namespace veldrin
