#pragma once

#include "shell/Application.h"
#include "shell/Host.h"
#include "shell/Toolkit.h"

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
/// status: 0, or 1 after an exception that nothing caught, which has been reported by then.
int runProcess(Host& host, Toolkit& toolkit, const ApplicationParts& parts);

/// The six steps of the start-up, in order. They catch nothing.
void _Startup();

/// The number of plug-in entries that the start-up asks for.
inline constexpr std::int32_t PluginEntryCount = 29;

/// The implementation of a control's operation by its name, such as "Placard.Value.Set"; nil for
/// what this build does not have.
Function RuntimeLookupPluginEntrypoint(const String& name);

}  // namespace veldrin
