#include "shell/window/Application.h"

#include <cstdio>
#include <string>
#include <system_error>
#include <utility>

#include "shell/files/FolderItem.h"
#include "shell/host/StopSignal.h"
#include "shell/values/Text.h"
#include "shell/window/Toolkit.h"
#include "shell/window/Window.h"

namespace veldrin {
namespace {

Ref<Application> registered;
bool isFailureReported = false;

/// For example "IOException, error 28: No space left on device". If a file is incomplete,
/// "/home/me/Veldrin.ics is incomplete: No space left on device (IOException, error 28)".
String sentenceOn(const RuntimeException& exception) {
  const String& incomplete = exception.incompleteFile;
  const std::int32_t number = exception.ErrorNumber;
  String failure = exception.classRecord()->name;
  if (number != 0) failure = failure + ", error "_s + Str(number);
  String reason;
  if (stopSignal() != 0) {
    reason = "stopped by "_s + stopSignalName();
  } else if (number != 0) {
    reason = String(std::generic_category().message(number));
  }
  if (incomplete.isEmpty()) return reason.isEmpty() ? failure : failure + ": "_s + reason;
  const String start = incomplete + " is incomplete: "_s;
  if (stopSignal() != 0) return start + reason;
  return reason.isEmpty() ? start + failure : start + reason + " ("_s + failure + ")"_s;
}

/// Writes the call stack of an exception to standard error. Writes nothing for I/O errors,
/// exhausted memory and `EndException`: for these, the sentence of the report is enough.
void printCalls(const RuntimeException& exception) {
  for (ClassRecord* const record :
       {IOException::__Lookup(), OutOfMemoryException::__Lookup(), EndException::__Lookup()}) {
    if (RuntimeObjectIsa(&exception, record)) return;
  }
  const Ref<Array<String>> calls = exception.Stack();
  for (const String& call : calls->elements) {
    static_cast<void>(std::fprintf(stderr, "  called from %s\n", std::string(call.view()).c_str()));
  }
}

/// Reports the incomplete file of a dropped `EndException`, if any. Makes the stop signal pending
/// again, so that the event loop ends.
void passOnStop(const Ref<RuntimeException>& exception) {
  if (!exception->incompleteFile.isEmpty()) _UnhandledException(exception);
  makeStopPending();
}

}  // namespace

void Application::fillTable(ClassTable<Application>& table) {
  using E = Events;
  table.event(E::Open, E::Close, E::EnableMenuItems, E::NewDocument, E::OpenDocument,
              E::HandleAppleEvent, E::Activate, E::Deactivate, E::UnhandledException,
              E::CancelClose);
  table.method<&Application::_EnableMenuItems>("_EnableMenuItems"_s);
  table.method<&Application::_HandleMenuCommand>("_HandleMenuCommand"_s);
  table.plainMethod<&Application::_CallFunctionWithExceptionHandling>(
      "_CallFunctionWithExceptionHandling"_s, PrivateHidden);
  table.property<&Application::MenuBar>("MenuBar"_s);
  table.property<&Application::AutoQuit>("AutoQuit"_s);
}

void Application::changed() const {
  if (registered.get() == this) InForce<Toolkit>::get().menusChanged();
}

void Application::setActive(bool active) {
  if (active == std::exchange(isActive_, active)) return;
  callHandler(*this, active ? Events::Activate : Events::Deactivate);
}

void Application::_EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& /*items*/) {
  callHandler(*this, Events::EnableMenuItems);
}

void Application::_CallFunctionWithExceptionHandling(void* function) {
  const Ref<Delegate> call = RuntimeCreateDelegate(
      &Delegate::Invoke, reinterpret_cast<Function>(function), nullptr, DelegateSignature);
  try {
    call->call();
  } catch (const Raised& raised) {
    if (!handlesException(raised.exception)) _UnhandledException(raised.exception);
  }
}

bool Application::handlesException(const Ref<RuntimeException>& exception) {
  if (RuntimeObjectIsa(exception.get(), EndException::__Lookup())) {
    if (stopSignal() != 0) passOnStop(exception);
    return true;
  }
  return RuntimeObjectIsa(exception.get(), ThreadEndException::__Lookup()) ||
         callHandler(*this, Events::UnhandledException, exception);
}

void _UnhandledException(const Ref<RuntimeException>& exception) {
  isFailureReported = true;
  printCalls(*exception);
  InForce<Toolkit>::get().reportUnhandledException(*exception, sentenceOn(*exception));
}

bool hasReportedFailure() {
  return isFailureReported;
}

void _RuntimeRegisterAppObject(const Ref<Application>& application) {
  registered = application;
}

Ref<Application> registeredApplication() {
  return registered;
}

void releaseApplication() {
  registered = nullptr;
  isFailureReported = false;
}

}  // namespace veldrin
