#pragma once

#include "shell/window/MenuItem.h"
#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// The window's own menu bar, or the application's if the window has none or is nullptr.
Ref<MenuBar> menuBarOf(const Window* window);

/// The session of the process. It acts on the registered application, the open windows and the
/// toolkit in force.
class ApplicationSession final : public Session {
 public:
  /// Tells the toolkit if the item is in the bar of an open window or of the application.
  void menuItemChanged(const MenuItem& item) override;
  bool handleMenuCommand(const Ref<MenuItem>& item) override;
  void enableMenuItems() override;
  void windowClosed() override;
  bool endApplication() override;

 private:
  bool isEnabling_ = false;  ///< during `enableMenuItems`, which notifies the toolkit once
};

}  // namespace veldrin
