#include "shell/Application.h"

#include <cstdio>
#include <string>
#include <system_error>
#include <utility>

#include "shell/FolderItem.h"
#include "shell/Runtime.h"
#include "shell/Stop.h"
#include "shell/Text.h"
#include "shell/Window.h"

namespace veldrin {

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
  if (!Runtime::exists() || Runtime::current().application.get() != this) return;
  Runtime::current().toolkit.menusChanged();
}

void Application::userTurnedTo(bool active) {
  if (active == std::exchange(active_, active)) return;
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
    if (!dealsWith(raised.exception)) _UnhandledException(raised.exception);
  }
}

bool Application::dealsWith(const Ref<RuntimeException>& exception) {
  const bool dealt = RuntimeObjectIsa(exception.get(), EndException::__Lookup()) ||
                     RuntimeObjectIsa(exception.get(), ThreadEndException::__Lookup()) ||
                     callHandler(*this, Events::UnhandledException, exception);
  // Of a file that it has left incomplete nobody will be told.
  if (dealt) Runtime::current().incomplete = String();
  return dealt;
}

namespace {

/// "IOException, error 28: No space left on device", and where a file is incomplete
/// "/home/me/Veldrin.ics is incomplete: No space left on device (IOException, error 28)".
String sentenceOn(const RuntimeException& exception, const String& incomplete) {
  const std::int32_t number = exception.ErrorNumber;
  String failure = exception.classRecord()->name;
  if (number != 0) failure = failure + ", error "_s + Str(number);
  String reason;
  if (askedToStop() != 0) {
    reason = "stopped by "_s + nameOfStop();
  } else if (number != 0) {
    reason = String(std::generic_category().message(number));
  }
  if (incomplete.isEmpty()) return reason.isEmpty() ? failure : failure + ": "_s + reason;
  const String what = incomplete + " is incomplete: "_s;
  if (askedToStop() != 0) return what + reason;
  return reason.isEmpty() ? what + failure : what + reason + " ("_s + failure + ")"_s;
}

}  // namespace

namespace {

/// Writes the calls that an exception comes from on the error stream. Those of a failed file, of
/// exhausted memory and of an end that was asked for tell nobody anything: the sentence is enough.
void printCalls(const RuntimeException& exception) {
  for (ClassRecord* const told :
       {IOException::__Lookup(), OutOfMemoryException::__Lookup(), EndException::__Lookup()}) {
    if (RuntimeObjectIsa(&exception, told)) return;
  }
  const Ref<Array<String>> calls = exception.Stack();
  for (const String& call : calls->elements) {
    static_cast<void>(std::fprintf(stderr, "  called from %s\n", std::string(call.view()).c_str()));
  }
}

}  // namespace

void _UnhandledException(const Ref<RuntimeException>& exception) {
  Runtime& runtime = Runtime::current();
  runtime.exitStatus = 1;
  const String incomplete = std::exchange(runtime.incomplete, String());
  printCalls(*exception);
  runtime.toolkit.reportUnhandledException(*exception, sentenceOn(*exception, incomplete));
}

bool endApplication() {
  Runtime& runtime = Runtime::current();
  const Ref<Application> application = runtime.application;
  if (application && callHandler(*application, Application::Events::CancelClose)) return false;
  while (!runtime._WindowSupport.Windows.empty()) {
    if (!Ref<Window>(runtime._WindowSupport.Windows.back())->_UnifiedClose(true)) return false;
  }
  runtime.toolkit.quit();
  return true;
}

void endWithTheLastWindow() {
  Runtime& runtime = Runtime::current();
  if (!runtime._WindowSupport.Windows.empty()) return;
  const bool ends = runtime.application && runtime.application->AutoQuit;
  if (ends || !runtime.toolkit.hasOwnMenuBar()) runtime.toolkit.quit();
}

bool QuitMenuAction(MenuItem& /*item*/) {
  endApplication();
  return true;
}

}  // namespace veldrin
