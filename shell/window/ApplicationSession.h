#pragma once

#include "shell/window/MenuItem.h"
#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// The menu bar that a window shows: its own, or else the application's; the application's for nil.
Ref<MenuBar> menuBarOf(const Window* window);

/// The session of the process: what menu items and windows ask for, carried out with the registered
/// application, the open windows and the toolkit in force.
class ApplicationSession final : public Session {
 public:
  /// Tells the toolkit if the item is in the bar of an open window or of the application.
  void menuItemChanged(const MenuItem& item) override;
  bool handlesMenuCommand(const Ref<MenuItem>& item) override;
  void enableMenuItems() override;
  void windowClosed() override;
  bool endApplication() override;

 private:
  bool isEnabling_ = false;  ///< while all items are refreshed, the toolkit is not told of each
};

}  // namespace veldrin
