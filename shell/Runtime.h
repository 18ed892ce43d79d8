#pragma once

#include "shell/files/FilesRoom.h"
#include "shell/host/Host.h"
#include "shell/objects/Failure.h"
#include "shell/objects/Stack.h"
#include "shell/window/WindowRoom.h"

namespace veldrin {

/// Takes up the rooms of the shell in order, which is `RuntimeInit`, and lays them down in reverse,
/// so that nothing of one process is left to the next. There can be one at a time.
class Runtime {
 public:
  /// `host` and `toolkit` must outlive this. Throws `FatalFault` if there is another.
  Runtime(Host& host, Toolkit& toolkit) : host_(host), window_(toolkit) { measureStack(); }
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;
  ~Runtime() = default;

 private:
  OutOfMemoryRaiser outOfMemoryRaiser_;
  InForce<Host> host_;
  FilesRoom files_;
  WindowRoom window_;
};

}  // namespace veldrin
