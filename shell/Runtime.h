#pragma once

#include <vector>

#include "shell/Application.h"
#include "shell/FileType.h"
#include "shell/Host.h"
#include "shell/Toolkit.h"
#include "shell/objects/Dictionary.h"

namespace veldrin {

struct ApplicationParts;

/// The runtime of the process: what the framework's operations, which take no context along, find
/// the outside world by. It exists from `RuntimeInit` on, one at a time, for as long as the object
/// lives that stands for it.
class Runtime {
 public:
  /// `RuntimeInit`: readies the runtime on this machine and this toolkit, which must outlive it.
  /// From here on a write that the system refuses (past a limit on the size of files, into a pipe
  /// that nobody reads) is an error of that write and does not end the process.
  Runtime(Host& machine, Toolkit& drawing);
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;
  ~Runtime();

  /// The one that exists; having none is a fault of the program.
  static Runtime& current() { return *current_; }
  /// Takes the windows that are still open down, without asking anybody.
  void leaveWindows();

  /// Whether there is one; an object may outlive it.
  static bool exists() { return current_ != nullptr; }

  Host& host;        ///< the machine, which outlives the runtime
  Toolkit& toolkit;  ///< what draws and asks, likewise

  /// The implicit windows by class name. `_GetImplicitWindow` looks among the open ones, so nothing
  /// fills this.
  Ref<Dictionary> _mImplicitWindowList;
  struct {
    std::vector<Ref<Window>> Windows;  ///< the open ones, which live because they stand here
    Ref<Dictionary> mDirtyWindows;     ///< those that wait for a redraw; made on first use
  } _WindowSupport;
  std::vector<RegisteredFileType> fileTypes;  ///< in the order in which they were registered
  Ref<Application> application;               ///< the one of the process, once registered
  const ApplicationParts* parts = nullptr;    ///< of the process that runs, if one does
  Function startup = nullptr;                 ///< what runs once, ahead of the event loop
  std::vector<Function> pluginEntries;        ///< in the order of their names
  String incomplete;   ///< the path of a file whose writing an exception has ended; for the report
  int exitStatus = 0;  ///< of the process; 1 after an exception that nothing caught

 private:
  OutOfMemoryRaiser outOfMemoryRaiser_;
  static inline Runtime* current_ = nullptr;
};

}  // namespace veldrin
