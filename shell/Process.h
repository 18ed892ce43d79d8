#pragma once

#include "shell/host/Host.h"
#include "shell/window/Application.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// The callbacks of the program that the framework calls when a process starts and ends.
struct ApplicationParts {
  void (*initialize)();       ///< `% initialize`: builds all classes in their order
  void (*initFileTypes)();    ///< builds the set of file types
  Ref<MenuBar> (*menuBar)();  ///< returns the menu bar of the application
  void (*makeView)();         ///< opens the default window
  void (*finalize)();         ///< `% finalize`: releases the globals
};

/// Runs a process from start to end: `RuntimeInit`, `% initialize`, `_Main`, `% finalize`,
/// `RuntimeExit`. Returns the exit status: 0; 1 if it has reported an exception of any type; 128
/// plus the signal number after a stop signal. `% finalize` and `RuntimeExit` run even if an
/// earlier step fails.
int runProcess(Host& host, Toolkit& toolkit, const ApplicationParts& parts);

/// Runs the six steps of the start-up. Catches nothing.
void _Startup();

}  // namespace veldrin
