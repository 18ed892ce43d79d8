#include "shell/Process.h"

#include <exception>
#include <string_view>
#include <utility>

#include "shell/PluginEntries.h"
#include "shell/Runtime.h"
#include "shell/Stop.h"
#include "shell/Window.h"

namespace veldrin {

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

/// Ends the application for the system. False where somebody has refused that.
bool endsForTheSystem() {
  if (endApplication()) return true;
  forgetStop();
  return false;
}

/// Runs the event loop once. True where the application has ended by that: an exception that it
/// deals with lets the loop go on, and so does a window that does not close for the system.
bool eventLoopEnds() {
  Runtime& runtime = Runtime::current();
  bool ends = true;
  try {
    runtime.toolkit.run();
  } catch (const Raised& raised) {
    const bool isStop =
        askedToStop() != 0 && RuntimeObjectIsa(raised.exception.get(), EndException::__Lookup());
    if (isStop) {
      if (!runtime.incomplete.isEmpty()) _UnhandledException(raised.exception);
      return endsForTheSystem();
    }
    if (!runtime.application || !runtime.application->dealsWith(raised.exception)) throw;
    ends = false;
  }
  return takeStop() ? endsForTheSystem() : ends;
}

/// The start-up function, the application's "Open" and the event loop. What they raise comes out of
/// here.
void _RuntimeRun() {
  Runtime& runtime = Runtime::current();
  if (const Function startup = std::exchange(runtime.startup, nullptr)) startup();
  if (runtime.application) callHandler(*runtime.application, Application::Events::Open);
  while (!eventLoopEnds()) {
  }
}

void reportFault(std::string_view sentence) {
  Runtime::current().exitStatus = 1;
  Runtime::current().toolkit.reportFault(String(sentence));
}

/// Runs a step of the process and reports whatever it throws. True if nothing was thrown.
bool succeeds(void (*step)()) {
  try {
    step();
    return true;
  } catch (const Raised& raised) {
    _UnhandledException(raised.exception);
  } catch (const std::exception& failure) {
    reportFault(failure.what());
  } catch (...) {
    reportFault("An unknown error occurred.");
  }
  return false;
}

/// The same for a report that may fail as well.
bool survives(void (*step)()) {
  try {
    if (succeeds(step)) return true;
  } catch (...) {
    // The report itself has failed, as it may without memory: the status has to say it alone.
    Runtime::current().exitStatus = 1;
  }
  return false;
}

/// The start-up and the event loop, and behind them the application's "Close".
void _Main() {
  survives([] {
    // Only the delegate's target is needed.
    _RunFrameworkInitialization(
        RuntimeCreateDelegate(&Delegate::Invoke, &_Startup, nullptr, DelegateSignature)->target());
    _RuntimeRun();
  });
  survives([] {
    const Ref<Application> application = Runtime::current().application;
    if (application) callHandler(*application, Application::Events::Close);
  });
}

/// Takes the runtime's own references down and gives the exit status of the process.
int RuntimeExit() {
  constexpr int OfSignals = 128;  // as shells count
  Runtime& runtime = Runtime::current();
  runtime.application = nullptr;
  return askedToStop() != 0 ? OfSignals + askedToStop() : runtime.exitStatus;
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
  const StopWatch watch;
  runtime.parts = &parts;
  if (survives(parts.initialize)) _Main();
  survives(parts.finalize);
  return RuntimeExit();
}

}  // namespace veldrin
