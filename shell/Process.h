#pragma once

#include "shell/host/Host.h"
#include "shell/window/Application.h"
#include "shell/window/Toolkit.h"

namespace veldrin {

/// What the start-up and the end of a process need of the application, which stands above the
/// shell.
struct ApplicationParts {
  void (*initialize)();       ///< `% initialize`: builds all classes in their order
  void (*initFileTypes)();    ///< builds the file type set
  Ref<MenuBar> (*menuBar)();  ///< the bar for the application and its window
  void (*makeView)();         ///< makes the default view, and gives the reference up
  void (*finalize)();         ///< `% finalize`: releases the globals
};

/// The path of a process on a machine and a toolkit, which is what `main` of both programs comes
/// to: `RuntimeInit`, `% initialize`, `_Main`, `% finalize`, `RuntimeExit`. Its result is the exit
/// status: 0; 1 after an exception that nothing caught, which has been reported by then; 128 and
/// the number of the signal where the system has asked the process to end. Every exception counts,
/// those of the library as well; whichever step fails, the steps of the end run.
int runProcess(Host& host, Toolkit& toolkit, const ApplicationParts& parts);

/// The six steps of the start-up, in order. They catch nothing.
void _Startup();

}  // namespace veldrin
