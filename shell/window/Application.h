#pragma once

#include "shell/objects/Delegate.h"
#include "shell/objects/Described.h"
#include "shell/objects/Failure.h"
#include "shell/window/Live.h"
#include "shell/window/MenuItem.h"

namespace veldrin {

class FolderItem;

/// The application object, one for each process.
class Application : public Described<Application, Object> {
 public:
  static constexpr FixedString FullName = "Application";
  static void fillTable(ClassTable<Application>& table);

  /// The events of the application, in the order of its table. A handler returns true for handled,
  /// and the handler of "CancelClose" returns true to refuse.
  ///
  /// "Open" is raised once before the event loop, "Close" once after it, even after an error.
  /// "Activate" and "Deactivate" alternate when the user switches between programs. "CancelClose"
  /// is raised when the application is to quit, before the "CancelClose" of each window. It is not
  /// raised when closing the last window ends the application. "UnhandledException" is raised for
  /// an exception that leaves a handler; if it is handled, the event loop continues.
  ///
  /// "NewDocument", "OpenDocument" and "HandleAppleEvent" exist because the framework's conventions
  /// ask for them; no toolkit raises them.
  struct Events {
    static constexpr Event<void()> Open{"Open"_s};
    static constexpr Event<void()> Close{"Close"_s};
    static constexpr Event<void()> EnableMenuItems{"EnableMenuItems"_s};
    static constexpr Event<void()> NewDocument{"NewDocument"_s};
    static constexpr Event<void(Ref<FolderItem>)> OpenDocument{"OpenDocument"_s};
    static constexpr Event<bool(Ref<Object>, String, String)> HandleAppleEvent{
        "HandleAppleEvent"_s};
    static constexpr Event<void()> Activate{"Activate"_s};
    static constexpr Event<void()> Deactivate{"Deactivate"_s};
    static constexpr Event<bool(Ref<RuntimeException>)> UnhandledException{"UnhandledException"_s};
    static constexpr Event<bool()> CancelClose{"CancelClose"_s};
  };

  /// The menu bar of windows that have none of their own.
  LiveProperty<Application, Ref<veldrin::MenuBar>> MenuBar{*this};

  /// Raises "EnableMenuItems".
  virtual void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);

  /// Called after the front window when the user chooses a menu item, see
  /// `Session::handleMenuCommand`. An override returns true for handled.
  virtual bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// Calls `function`, a `void (*)()`, and catches framework exceptions. Reports those that
  /// `handlesException` does not handle.
  void _CallFunctionWithExceptionHandling(void* function);

  /// Handles an exception that has left a handler. Drops `EndException` and `ThreadEndException`;
  /// passes others to the handler of "UnhandledException". Returns whether it was handled. For
  /// the `EndException` of a stop signal, reports the incomplete file, if any, and makes the signal
  /// pending again.
  bool handlesException(const Ref<RuntimeException>& exception);

  /// Raises "Activate" or "Deactivate" if Veldrin is not in that state yet.
  void setActive(bool active);

  /// Whether closing the last window ends the application. Veldrin leaves it false. On a desktop
  /// without its own menu bar it always ends, because without a window the user could not quit it.
  bool AutoQuit = false;

 private:
  template <class Owner, class T>
  friend class LiveProperty;

  /// Tells the toolkit of a change made by the program.
  void changed() const;

  bool isActive_ = false;
};

/// Veldrin's application class. Adds nothing.
class App final : public Described<App, Application> {
 public:
  static constexpr FixedString FullName = "App";
};

/// `RuntimeUnhandledException`: reports an uncaught exception and its incomplete file, if any.
void _UnhandledException(const Ref<RuntimeException>& exception);

/// Whether `_UnhandledException` has been called since the last `releaseApplication`.
bool hasReportedFailure();

/// `RuntimeRegisterAppObject`: makes the object the application of the process.
void _RuntimeRegisterAppObject(const Ref<Application>& application);

/// The application of the process, or nil if none is registered.
Ref<Application> registeredApplication();

/// Releases the application and resets `hasReportedFailure`.
void releaseApplication();

}  // namespace veldrin
