#include "shell/Application.h"

#include <utility>

#include "shell/Runtime.h"
#include "shell/Window.h"

namespace veldrin {

void Application::fillTable(ClassTable<Application>& table) {
  for (const StringConstant name : {"Open"_s, "Close"_s, "EnableMenuItems"_s, "NewDocument"_s,
                                    "OpenDocument"_s, "HandleAppleEvent"_s, "Activate"_s,
                                    "Deactivate"_s, "UnhandledException"_s, "CancelClose"_s}) {
    table.event(name);
  }
  table.method<&Application::_EnableMenuItems>("_EnableMenuItems"_s);
  table.method<&Application::_HandleMenuCommand>("_HandleMenuCommand"_s);
  table.plainMethod<&Application::_CallFunctionWithExceptionHandling>(
      "_CallFunctionWithExceptionHandling"_s, Private);
  table.property<Ref<veldrin::MenuBar>, &Application::MenuBar, &Application::MenuBar>("MenuBar"_s);
  table.property<&Application::AutoQuit>("AutoQuit"_s);
}

void Application::MenuBar(Ref<veldrin::MenuBar> bar) {
  menuBar_ = std::move(bar);
}

void Application::_EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& /*items*/) {
  const ClassRecord& record = *classRecord();
  const auto index = static_cast<std::size_t>(FindEvent(record, "EnableMenuItems"_s));
  if (const Function handler = record.eventRows[index].handler; handler != nullptr) {
    reinterpret_cast<void (*)(Object*)>(handler)(this);
  }
}

void Application::_CallFunctionWithExceptionHandling(void* function) {
  RuntimeStackCheck();
  const Ref<Delegate> call = RuntimeCreateDelegate(
      &Delegate::Invoke, reinterpret_cast<Function>(function), nullptr, DelegateSignature);
  try {
    call->call();
  } catch (const Raised& raised) {
    handle(raised.exception);
  }
}

void Application::handle(const Ref<RuntimeException>& exception) {
  if (RuntimeObjectIsa(exception.get(), EndException::__Lookup())) return;
  if (RuntimeObjectIsa(exception.get(), ThreadEndException::__Lookup())) return;
  const ClassRecord& record = *classRecord();
  const auto index = static_cast<std::size_t>(FindEvent(record, "UnhandledException"_s));
  using Handler = bool (*)(Object*, const Ref<RuntimeException>&);
  const Function handler = record.eventRows[index].handler;
  if (handler != nullptr && reinterpret_cast<Handler>(handler)(this, exception)) return;
  _UnhandledException(exception);
}

void _UnhandledException(const Ref<RuntimeException>& exception) {
  Runtime& runtime = Runtime::current();
  runtime.exitStatus = 1;
  runtime.toolkit.reportUnhandledException(*exception);
}

bool QuitMenuAction(MenuItem& /*item*/) {
  Runtime& runtime = Runtime::current();
  while (!runtime._WindowSupport.Windows.empty()) {
    if (!runtime._WindowSupport.Windows.back()->_UnifiedClose(true)) return true;
  }
  runtime.toolkit.quit();
  return true;
}

}  // namespace veldrin
