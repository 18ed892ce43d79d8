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

/// The state of the running process. It is in force, because `_Startup` takes no argument.
struct ProcessState {
  static constexpr std::string_view Kind = "process";

  const ApplicationParts* parts;
  Function startup = nullptr;  ///< called once, before the event loop
  bool hasFailed = false;      ///< `reportFault` or `reportOutOfMemory` has been called
};

ProcessState& process() {
  return InForce<ProcessState>::get();
}

const ApplicationParts& parts() {
  return *process().parts;
}

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

/// Does nothing, because the application handles no menu item. The framework's conventions ask for
/// this step.
void _ApplicationAddMenuHandlers() {}

void _MakeDefaultView() {
  parts().makeView();
}

/// Stores the start-up function for `_RuntimeRun`.
void _RunFrameworkInitialization(Function startup) {
  process().startup = startup;
}

/// Ends the application after a stop signal. If the application or a window refuses, forgets the
/// signal and returns false.
bool endAfterStopSignal() {
  if (InForce<Session>::get().endApplication()) return true;
  dismissStop();
  return false;
}

/// Runs the event loop once. Returns false if it must run again: after an exception that the
/// application handled, or a stop signal that `endAfterStopSignal` has forgotten.
bool runEventLoop() {
  bool hasEnded = true;
  try {
    InForce<Toolkit>::get().run();
  } catch (const Raised& raised) {
    const Ref<Application> application = registeredApplication();
    if (!application || !application->handlesException(raised.exception)) throw;
    hasEnded = false;
  }
  return acceptStop() ? endAfterStopSignal() : hasEnded;
}

/// Runs the start-up function, the handler of the application's "Open", and the event loop. Does
/// not catch the exceptions of the first two.
void _RuntimeRun() {
  if (const Function startup = std::exchange(process().startup, nullptr)) startup();
  const Ref<Application> application = registeredApplication();
  if (application) callHandler(*application, Application::Events::Open);
  while (!runEventLoop()) {
  }
}

void reportFault(std::string_view sentence) {
  process().hasFailed = true;
  InForce<Toolkit>::get().reportFault(String(sentence));
}

/// Runs a step and reports any exception. Returns false if the step has thrown one.
bool runReporting(void (*step)()) {
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

/// As `runReporting`, but also catches an exception thrown by the report.
bool runStep(void (*step)()) {
  try {
    if (runReporting(step)) return true;
  } catch (...) {
    // The report itself failed; the probable cause is a lack of memory.
    process().hasFailed = true;
    InForce<Toolkit>::get().reportOutOfMemory();
  }
  return false;
}

/// Runs the start-up and the event loop. Then raises the application's "Close", even on an error.
void _Main() {
  runStep([] {
    // Only the delegate's target is needed.
    _RunFrameworkInitialization(
        RuntimeCreateDelegate(&Delegate::Invoke, &_Startup, nullptr, DelegateSignature)->target());
    _RuntimeRun();
  });
  acceptStop();  // the process ends anyway; a pending signal would interrupt the handler of "Close"
  runStep([] {
    const Ref<Application> application = registeredApplication();
    if (application) callHandler(*application, Application::Events::Close);
  });
}

/// Releases the application and returns the exit status.
int RuntimeExit() {
  constexpr int SignalStatus = 128;  // plus the signal number, as shells do
  const bool hasFailed = process().hasFailed || hasReportedFailure();
  releaseApplication();
  if (stopSignal() != 0) return SignalStatus + stopSignal();
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
  const InForce<ProcessState> inForce(state);
  if (runStep(parts.initialize)) _Main();
  runStep(parts.finalize);
  return RuntimeExit();
}

}  // namespace veldrin
