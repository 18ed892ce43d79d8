#include "shell/Process.h"

#include <exception>
#include <string_view>
#include <utility>

#include "shell/Runtime.h"
#include "shell/host/StopSignal.h"
#include "shell/window/PluginEntries.h"
#include "shell/window/Window.h"

namespace veldrin {
namespace {

/// The state of the process that runs. `_Startup` is called as a bare function, so it finds the
/// state here.
struct ProcessState {
  const ApplicationParts* parts;
  Function startup = nullptr;  ///< what runs once, before the event loop
  bool hasFailed = false;      ///< by something other than an exception object
};
ProcessState* process = nullptr;

const ApplicationParts& parts() {
  return *process->parts;
}

/// Registers the classes that live in the runtime itself: those of the failures.
void _RuntimeInitExternalClasses() {
  buildExceptionClasses();
}

void _InitFileTypes() {
  parts().initFileTypes();
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
  process->startup = startup;
}

/// Ends the application for the system. False where somebody has refused that.
bool endsForTheSystem() {
  if (InForce<Session>::get().endApplication()) return true;
  dismissStop();
  return false;
}

/// Runs the event loop once. True where the application has ended by that: an exception that it
/// deals with lets the loop go on, and so does a window that does not close for the system.
bool eventLoopEnds() {
  bool ends = true;
  try {
    InForce<Toolkit>::get().run();
  } catch (const Raised& raised) {
    const bool isStop =
        stopSignal() != 0 && RuntimeObjectIsa(raised.exception.get(), EndException::__Lookup());
    if (isStop) {
      if (!raised.exception->incompleteFile.isEmpty()) _UnhandledException(raised.exception);
      return endsForTheSystem();
    }
    const Ref<Application> application = registeredApplication();
    if (!application || !application->dealsWith(raised.exception)) throw;
    ends = false;
  }
  return acceptStop() ? endsForTheSystem() : ends;
}

/// The start-up function, the application's "Open" and the event loop. What they raise comes out of
/// here.
void _RuntimeRun() {
  if (const Function startup = std::exchange(process->startup, nullptr)) startup();
  const Ref<Application> application = registeredApplication();
  if (application) callHandler(*application, Application::Events::Open);
  while (!eventLoopEnds()) {
  }
}

void reportFault(std::string_view sentence) {
  process->hasFailed = true;
  InForce<Toolkit>::get().reportFault(String(sentence));
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
    // The report itself has failed, as it may without memory.
    process->hasFailed = true;
    InForce<Toolkit>::get().reportLost();
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
    const Ref<Application> application = registeredApplication();
    if (application) callHandler(*application, Application::Events::Close);
  });
}

/// Gives up the application and decides the exit status of the process.
int RuntimeExit() {
  constexpr int OfSignals = 128;  // as shells count
  const bool hasFailed = process->hasFailed || hasReportedFailure();
  layDownApplication();
  if (stopSignal() != 0) return OfSignals + stopSignal();
  return hasFailed ? 1 : 0;
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
  const Runtime runtime(host, toolkit);  // RuntimeInit
  const StopSignalGuard stopSignals;
  ProcessState state{.parts = &parts};
  process = &state;
  if (survives(parts.initialize)) _Main();
  survives(parts.finalize);
  const int status = RuntimeExit();
  process = nullptr;
  return status;
}

}  // namespace veldrin
