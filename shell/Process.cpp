#include "shell/Process.h"

#include <utility>

#include "shell/Runtime.h"
#include "shell/Window.h"

namespace veldrin {

// Defined beside the table of the entries.
void _InitPluginEntrypoints();

namespace {

const ApplicationParts& parts() {
  return *Runtime::current().parts;
}

/// Registers the classes that live in the runtime itself: those of the failures.
void _RuntimeInitExternalClasses() {
  buildExceptionClasses();
}

void _InitFileTypes() {
  parts().initFileTypes();
}

/// `RuntimeRegisterAppObject`: makes the object the application of the process, which keeps it.
void _RuntimeRegisterAppObject(const Ref<Application>& application) {
  Runtime::current().application = application;
}

void _NewAppInstance() {
  const Ref<App> application = New<App>();
  application->MenuBar(parts().menuBar());
  _RuntimeRegisterAppObject(application);
}

/// There are none: no item of the menus has a handler of the application's own.
void _ApplicationAddMenuHandlers() {}

void _MakeDefaultView() {
  parts().makeView();
}

/// Takes the start-up function, which runs once before the event loop handles anything.
void _RunFrameworkInitialization(Function startup) {
  Runtime::current().startup = startup;
}

/// The start-up function and the event loop. What either raises comes out of here.
void _RuntimeRun() {
  Runtime& runtime = Runtime::current();
  if (const Function startup = std::exchange(runtime.startup, nullptr)) startup();
  runtime.toolkit.run();
}

/// The start-up and the event loop, under the one handler of the whole program.
void _Main() {
  try {
    // The delegate has done its part once its target is known.
    _RunFrameworkInitialization(
        RuntimeCreateDelegate(&Delegate::Invoke, &_Startup, nullptr, DelegateSignature)->target());
    _RuntimeRun();
  } catch (const Raised& raised) {
    _UnhandledException(raised.exception);
  } catch (const FatalFault& fault) {
    Runtime::current().exitStatus = 1;
    Runtime::current().toolkit.reportFault(String(fault.what()));
  }
}

/// Takes the runtime's own references down and gives the exit status of the process.
int RuntimeExit() {
  Runtime& runtime = Runtime::current();
  runtime.application = nullptr;
  return runtime.exitStatus;
}

}  // namespace

void _Startup() {
  _RuntimeInitExternalClasses();
  _InitPluginEntrypoints();
  _InitFileTypes();
  _NewAppInstance();
  _ApplicationAddMenuHandlers();
  _MakeDefaultView();
}

int runProcess(Host& host, Toolkit& toolkit, const ApplicationParts& parts) {
  Runtime runtime(host, toolkit);  // RuntimeInit
  runtime.parts = &parts;
  parts.initialize();
  _Main();
  parts.finalize();
  return RuntimeExit();
}

}  // namespace veldrin
