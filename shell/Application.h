#pragma once

#include "shell/MenuItem.h"
#include "shell/objects/Delegate.h"
#include "shell/objects/Described.h"
#include "shell/objects/Failure.h"

namespace veldrin {

/// The application object: there is one for the process.
class Application : public Described<Application, Object> {
 public:
  static constexpr FixedString FullName = "Application";
  static void fillTable(ClassTable<Application>& table);

  /// The menu bar that stands while no window does.
  [[nodiscard]] Ref<veldrin::MenuBar> MenuBar() const { return menuBar_; }
  void MenuBar(Ref<veldrin::MenuBar> bar);

  /// Raises "EnableMenuItems".
  void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);

  /// Does nothing and answers false: the toolkit does with the item what it does by itself.
  bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// Runs a function, a `void (*)()`, under the application's rules of failure: `EndException` and
  /// `ThreadEndException` are dropped, others go to the handler of "UnhandledException" and, where
  /// that does not take them, to the report.
  void _CallFunctionWithExceptionHandling(void* function);

  /// Whether the application ends when its last window has been closed. The program leaves it
  /// false, and the toolkit then decides: it does so where the menu bar lives in the window.
  bool AutoQuit = false;

 private:
  void handle(const Ref<RuntimeException>& exception);

  Ref<veldrin::MenuBar> menuBar_;
};

/// The application of this program, which adds nothing.
class App final : public Described<App, Application> {
 public:
  static constexpr FixedString FullName = "App";
};

/// `RuntimeUnhandledException`: reports an exception that nothing caught; the exit status of the
/// process will be 1.
void _UnhandledException(const Ref<RuntimeException>& exception);

/// Asks the framework to end the application: the open windows are closed, then the event loop
/// ends. True for handled, also where a window refuses to close.
bool QuitMenuAction(MenuItem& item);

}  // namespace veldrin
