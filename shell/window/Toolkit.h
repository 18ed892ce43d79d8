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

/// All that Veldrin needs of a toolkit: it draws the window, shows dialogs and runs the event loop.
/// The controls of the window are the live state, and a toolkit mirrors it. It is told here of each
/// change by the program, and tells the controls (`TextField::userTyped` and its kin) of each
/// change by the user. The toolkit in force is `InForce<Toolkit>::get()`.
class Toolkit {
 public:
  static constexpr std::string_view Kind = "toolkit";

  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;
  virtual ~Toolkit() = default;

  /// A window stands with its controls and their values; the toolkit shows it if it is `Visible`.
  virtual void windowOpened(Window& window) = 0;

  /// A window has been closed and is about to give up its controls.
  virtual void windowClosed(Window& window) = 0;

  /// The program has changed a control in an open window: a property, its rows or its selection.
  /// The toolkit follows what it draws.
  virtual void controlChanged(Control& control) = 0;

  /// The program has changed a property of an open window, such as its title or its bar of menus.
  virtual void windowChanged(Window& window) = 0;

  /// The program has changed the application's bar, or the items of a bar that shows: their tree,
  /// their texts, their ticks, or which are enabled. The editing commands go by the focused field
  /// besides, as the desktop has it.
  virtual void menusChanged() = 0;

  /// Whether the desktop has a menu bar of its own, which stands when no window does.
  [[nodiscard]] virtual bool hasOwnMenuBar() const = 0;

  /// Shows the modal save dialog and waits: the place that was chosen, or nil for cancelled.
  /// `filter` names file types, joined by ";"; an existing file is confirmed in the dialog.
  virtual Ref<FolderItem> getSaveFolderItem(const String& filter, const String& defaultName) = 0;

  /// Shows a text in a message box and returns when it has been dismissed.
  virtual void messageBox(const String& text) = 0;

  /// Runs the event loop until `quit`, or until `stopSignalDescriptor` can be read. What a handler
  /// raises comes out of here, and the loop can be run again.
  virtual void run() = 0;

  /// Ends the event loop when the handler at hand has run to its end.
  virtual void quit() = 0;

  /// Repaints what waits for it. Called often, from inside of handlers; delivers no user input.
  virtual void backgroundTask() = 0;

  /// Reports an exception that nothing caught, to a person and to whoever reads the errors; where
  /// it is the `EndException` of a process that the system ends, only to the latter. `sentence`
  /// says what has happened, with no full stop.
  virtual void reportUnhandledException(const RuntimeException& exception,
                                        const String& sentence) = 0;

  /// Reports a fault of the build, which ends the process.
  virtual void reportFault(const String& sentence) = 0;

  /// Says that a report has failed itself, for lack of memory. Must not allocate any.
  virtual void reportLost() noexcept = 0;

 protected:
  Toolkit() = default;
};

}  // namespace veldrin
