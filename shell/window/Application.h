#pragma once

#include "shell/objects/Delegate.h"
#include "shell/objects/Described.h"
#include "shell/objects/Failure.h"
#include "shell/window/Live.h"
#include "shell/window/MenuItem.h"

namespace veldrin {

class FolderItem;

/// The application object: there is one for the process.
class Application : public Described<Application, Object> {
 public:
  static constexpr FixedString FullName = "Application";
  static void fillTable(ClassTable<Application>& table);

  /// The events of the application, in the order of its table, with what their handlers take and
  /// give. True is for handled, and for refused in "CancelClose".
  ///
  /// "Open" comes once, ahead of the event loop, and "Close" once behind it, however it has ended;
  /// "Activate" and "Deactivate" come in turn as a person turns to the program and to another.
  /// "CancelClose" is asked first of all when the application is to quit, and the windows after it,
  /// but not where the application ends with its last window. "UnhandledException" comes for what
  /// leaves a handler in the event loop: where it answers true, the loop goes on.
  ///
  /// "NewDocument", "OpenDocument" and "HandleAppleEvent" are sent by no desktop that there is a
  /// toolkit for: nobody raises them.
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

  /// The menu bar that stands while no window does.
  LiveProperty<Application, Ref<veldrin::MenuBar>> MenuBar{*this};

  /// Raises "EnableMenuItems".
  void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);

  /// The second that is asked to handle a menu item that a person has chosen, behind the window in
  /// front. This one does nothing and answers false.
  virtual bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// Runs a function, a `void (*)()`, under the application's rules of failure: `EndException` and
  /// `ThreadEndException` are dropped, others go to the handler of "UnhandledException" and, where
  /// that does not take them, to the report.
  void _CallFunctionWithExceptionHandling(void* function);

  /// Whether an exception that has left a handler is dealt with: `EndException` and
  /// `ThreadEndException` by being dropped, others where the handler of "UnhandledException" takes
  /// them.
  bool dealsWith(const Ref<RuntimeException>& exception);

  /// A person has turned to the program or to another; does nothing where it is so already.
  void userTurnedTo(bool active);

  /// Whether the application ends when its last window has been closed. The program leaves it
  /// false; it ends all the same where the desktop has no menu bar of its own, since the menu bar,
  /// and with it the way to end it, has gone with the window.
  bool AutoQuit = false;

 private:
  template <class Owner, class T>
  friend class LiveProperty;

  /// Tells the toolkit of a change made by the program.
  void changed() const;

  bool active_ = false;
};

/// The application of this program, which adds nothing.
class App final : public Described<App, Application> {
 public:
  static constexpr FixedString FullName = "App";
};

/// `RuntimeUnhandledException`: reports an exception that nothing caught, and the file that it has
/// left incomplete, if any.
void _UnhandledException(const Ref<RuntimeException>& exception);

/// Whether `_UnhandledException` has reported an exception in this process.
bool hasReportedFailure();

/// `RuntimeRegisterAppObject`: makes the object the application of the process, which keeps it.
void _RuntimeRegisterAppObject(const Ref<Application>& application);

/// The application of the process, nil before it is registered.
Ref<Application> registeredApplication();

/// Gives the application up, and forgets the failures that were reported.
void layDownApplication();

}  // namespace veldrin
