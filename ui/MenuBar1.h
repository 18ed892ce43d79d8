#pragma once

#include "shell/window/MenuItem.h"

namespace veldrin {

/// The menu bar of the application and the window: File and Edit. Veldrin adds no command of its
/// own; an item's class or name selects a standard command.
class MenuBar1 final : public Described<MenuBar1, MenuBar> {
 public:
  static constexpr FixedString FullName = "MenuBar1.MenuBar1";
  static void fillTable(ClassTable<MenuBar1>& table);

  /// Builds the menus.
  void Constructor() override;
  /// Builds File.
  void Untitled0();
  /// Builds Edit.
  void Untitled1();

  /// The only instance; nil until its first use.
  static inline Ref<MenuBar1> _implicitInstance;
};

namespace implicit {
/// The only menu bar, made on first use.
Ref<veldrin::MenuBar1> MenuBar1();
}  // namespace implicit

}  // namespace veldrin
