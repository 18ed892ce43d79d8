#pragma once

#include <string_view>

#include "shell/objects/InForce.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"

namespace veldrin {

class Control;
class FolderItem;
class RuntimeException;
class Window;

/// A toolkit draws the window, shows dialogs and runs the event loop. The window's controls hold
/// the state, and the toolkit mirrors it. The framework reports its changes through this interface.
/// The toolkit reports the user's input to the controls, for example with `TextField::userTyped`.
/// The toolkit in force is `InForce<Toolkit>::get()`.
class Toolkit {
 public:
  static constexpr std::string_view Kind = "toolkit";

  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;
  virtual ~Toolkit() = default;

  /// A window is complete with its controls and their values. Show it if it is `Visible`.
  virtual void windowOpened(Window& window) = 0;

  /// A window has been closed and will release its controls.
  virtual void windowClosed(Window& window) = 0;

  /// The program has changed a property, the rows or the selection of a control in an open window,
  /// or has removed the control.
  virtual void controlChanged(Control& control) = 0;

  /// The program has changed a property of an open window, such as its title or menu bar.
  virtual void windowChanged(Window& window) = 0;

  /// The program has changed the application's menu bar or an item of a visible menu bar. An
  /// editing command without a menu handler is enabled only if the focused field can do it.
  virtual void menusChanged() = 0;

  /// Whether the desktop shows a menu bar even while no window is open.
  [[nodiscard]] virtual bool hasOwnMenuBar() const = 0;

  /// Shows the modal save dialog above the window, or alone if `parent` is nullptr or not open.
  /// Returns the chosen place, or nil if the user cancels. `filter` names file types, joined by
  /// ";". The dialog asks before choosing an existing file.
  virtual Ref<FolderItem> getSaveFolderItem(const Window* parent, const String& filter,
                                            const String& defaultName) = 0;

  /// Shows a message box, above `parent` like the save dialog. Returns when the user dismisses it.
  virtual void messageBox(const Window* parent, const String& text) = 0;

  /// Runs the event loop until `quit`, or until `stopSignalDescriptor` is readable. Throws the
  /// exception of a handler, even one called before `run`. Afterwards `run` may be called again.
  virtual void run() = 0;

  /// Ends the event loop after the current handler returns.
  virtual void quit() = 0;

  /// Repaints pending changes. Called often, from inside handlers. Must not deliver user input.
  virtual void backgroundTask() = 0;

  /// Reports an uncaught exception to the user and on standard error. Reports an `EndException` on
  /// standard error only. A stop signal closes the report's message box. `sentence` has no full
  /// stop.
  virtual void reportUnhandledException(const RuntimeException& exception,
                                        const String& sentence) = 0;

  /// Reports an error that is not a framework exception. The process then ends.
  virtual void reportFault(const String& sentence) = 0;

  /// Reports that memory is exhausted, after another report has failed. Must not allocate memory.
  virtual void reportOutOfMemory() noexcept = 0;

 protected:
  Toolkit() = default;
};

}  // namespace veldrin
