#pragma once

#include "shell/window/MenuItem.h"

namespace veldrin {

/// The menu bar of the application and the window: File and Edit. It has only standard commands:
/// `QuitMenuItem` ends the application, and the toolkit does the editing command of an item's name.
class MenuBar1 final : public Described<MenuBar1, MenuBar> {
 public:
  static constexpr FixedString FullName = "MenuBar1.MenuBar1";
  static void fillTable(ClassTable<MenuBar1>& table);

  /// Builds both menus.
  void Constructor() override;
  /// Builds the File menu.
  void Untitled0();
  /// Builds the Edit menu.
  void Untitled1();

  /// The only instance; nil before the first call of `implicit::MenuBar1`.
  static inline Ref<MenuBar1> _implicitInstance;
};

namespace implicit {
/// The only instance, made by the first call.
Ref<veldrin::MenuBar1> MenuBar1();
}  // namespace implicit

}  // namespace veldrin
