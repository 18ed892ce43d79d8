#pragma once

#include <string_view>

#include "shell/objects/InForce.h"
#include "shell/objects/Ref.h"

namespace veldrin {

class MenuItem;

/// The services of the running application that menu items and windows use. The session in force is
/// `InForce<Session>::get()`.
class Session {
 public:
  static constexpr std::string_view Kind = "session";

  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  virtual ~Session() = default;

  /// A menu item has changed.
  virtual void menuItemChanged(const MenuItem& item) = 0;

  /// Handles an item that the user has chosen. Tries `_HandleMenuCommand` of the front window, then
  /// `_HandleMenuCommand` of the application, then the window's handler for the item's name.
  /// Returns whether one of them has handled the item.
  virtual bool handleMenuCommand(const Ref<MenuItem>& item) = 0;

  /// Recomputes which items are enabled in the front window's menu bar, or in the application's if
  /// the window has none. Tells the toolkit once.
  virtual void enableMenuItems() = 0;

  /// A window has been closed. If it was the last, ends the event loop under the conditions of
  /// `Application::AutoQuit`.
  virtual void windowClosed() = 0;

  /// Ends the application: raises its "CancelClose", closes the windows, then ends the event loop.
  /// Returns false if the application or a window refuses.
  virtual bool endApplication() = 0;

 protected:
  Session() = default;
};

/// Recomputes which menu items are enabled, see `Session::enableMenuItems`.
inline void EnableMenuItems() {
  InForce<Session>::get().enableMenuItems();
}

}  // namespace veldrin
