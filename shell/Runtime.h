#pragma once

#include "shell/files/FilesRoom.h"
#include "shell/host/Host.h"
#include "shell/objects/Failure.h"
#include "shell/objects/Stack.h"
#include "shell/window/WindowRoom.h"

namespace veldrin {

/// `RuntimeInit`: owns the framework's state of one run, so that the next run in the process starts
/// without it. Only one `Runtime` may exist at a time.
class Runtime {
 public:
  /// `host` and `toolkit` must outlive the object. Throws `FatalFault` if another `Runtime` exists.
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
