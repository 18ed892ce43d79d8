#pragma once

#include "shell/MenuItem.h"

namespace veldrin {

class Window;

/// The bar of menus that belongs to the window, its own or else the application's; that of the
/// application for nil.
Ref<MenuBar> menuBarOf(const Window* window);

/// Works out afresh which items are enabled, those of the bar of the window in front or else of the
/// application's, and tells the toolkit, once.
void EnableMenuItems();

/// Offers an item that a person has chosen to `_HandleMenuCommand` of the window in front, then to
/// that of the application, then to the handler that the window has bound to the item's name.
/// Whether one of them has handled it.
bool offerMenuCommand(const Ref<MenuItem>& item);

/// Tells the toolkit that the item has changed, if it is in the bar of an open window or of the
/// application.
void tellOfMenuItem(const MenuItem& item);

}  // namespace veldrin
