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

  /// An item of a menu has changed.
  virtual void menuItemChanged(const MenuItem& item) = 0;

  /// Offers an item that the user has chosen to `_HandleMenuCommand` of the front window, then to
  /// that of the application, then to the handler that the window has bound to the item's name.
  /// Returns whether one of them has handled it.
  virtual bool handlesMenuCommand(const Ref<MenuItem>& item) = 0;

  /// Recomputes which items of the front window's bar are enabled, or of the application's bar
  /// without one. Tells the toolkit once.
  virtual void enableMenuItems() = 0;

  /// A window has been closed. Ends the application if it was the last and the application ends
  /// with it, see `Application::AutoQuit`.
  virtual void windowClosed() = 0;

  /// Ends the application: asks it by "CancelClose", closes the open windows, then ends the event
  /// loop. Returns false if the application or a window refuses.
  virtual bool endApplication() = 0;

 protected:
  Session() = default;
};

/// Recomputes which menu items are enabled, see `Session::enableMenuItems`.
inline void EnableMenuItems() {
  InForce<Session>::get().enableMenuItems();
}

}  // namespace veldrin
