#pragma once

#include "shell/window/MenuItem.h"

namespace veldrin {

/// The one menu bar, shared by the application and the window: File and Edit. The program adds no
/// command of its own; what the items do comes from their classes and names.
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

  /// The singleton's global, an owning reference; empty until the first use.
  static inline Ref<MenuBar1> _implicitInstance;
};

namespace implicit {
/// The one bar, made now if it does not stand yet.
Ref<veldrin::MenuBar1> MenuBar1();
}  // namespace implicit

}  // namespace veldrin
