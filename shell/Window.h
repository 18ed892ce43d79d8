#pragma once

#include <vector>

#include "shell/Control.h"
#include "shell/MenuItem.h"
#include "shell/objects/Color.h"
#include "shell/objects/Delegate.h"
#include "shell/objects/Described.h"
#include "shell/objects/Dictionary.h"

namespace veldrin {

/// A window with its controls. It is made in two steps, `New` and `Constructor`; the second raises
/// the events of its opening, in this order: "Layout", "CreateControls", "AddMenuHandlers",
/// "SetupBindings", the "Open" of each control, then its own "Open". An open window lives until it
/// is closed, whoever holds it besides.
class Window : public Described<Window, Object> {
 public:
  static constexpr FixedString FullName = "Window";
  static void fillTable(ClassTable<Window>& table);

  /// `RuntimeCreateWindow`: enters the window among the open ones.
  void __Init();
  /// `RuntimeViewDestructor`: lets go of the toolkit's window and of the controls.
  void __Exit();
  /// `WindowDefaultConstructor`: raises the events of the opening and hands the window to the
  /// toolkit.
  void Constructor();

  /// A new object of the class that belongs to this window; so controls and dates are made.
  [[nodiscard]] Ref<Object> __New(ClassRecord* record) const { return RuntimeNewObject(record); }

  /// Enters a control under its name. Raises `IllegalCastException` for what is no control.
  void _AddControl(const String& name, const Ref<Object>& control);

  /// Takes a control away, under whatever names it has; a closing control comes to this.
  void _RemoveControl(const Ref<Control>& control);

  /// Closes the window as its close button does.
  void Close() { _UnifiedClose(false); }
  /// Closes the controls and takes the window from the open ones. False where the handler of
  /// "CancelClose" says no; it is told whether the application is quitting.
  bool _UnifiedClose(bool quitting);

  /// The bar of menus, or nil.
  [[nodiscard]] Ref<veldrin::MenuBar> MenuBar() const { return menuBar_; }
  void MenuBar(Ref<veldrin::MenuBar> bar);

  /// Notes that the window waits for a redraw.
  void _AddDirtyWindow();

  /// The window has become the active one: raises "Activate" and enables the menu items afresh.
  void _CallActivated();
  /// The window is no longer the active one, likewise.
  void _CallDeactivated();
  /// Binds the menu item of that name to a handler of the window.
  void _AddMenuHandler(const String& name, const Ref<Delegate>& handler);
  /// Raises "EnableMenuItems" and enables those of the items that have a handler of the window.
  void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);
  /// Does nothing and answers false: the toolkit does with the item what it does by itself.
  bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// The controls in the order in which they were made.
  [[nodiscard]] const std::vector<Ref<Control>>& controls() const { return _mControlList; }

  /// Whether the opening has run to its end.
  [[nodiscard]] bool isOpen() const { return open_; }

  std::int32_t Placement = 0;  ///< 0: the toolkit chooses the place on the screen
  std::int32_t Width = 0;      ///< of the content, pixels, as the heights
  std::int32_t Height = 0;
  std::int32_t MinWidth = 0;
  std::int32_t MinHeight = 0;
  std::int32_t MaxWidth = 0;
  std::int32_t MaxHeight = 0;
  std::int32_t Frame = 0;  ///< 0: a document window with a title bar
  bool Composite = false;
  bool HasBackColor = false;
  Color BackColor = White;
  String Title;
  bool Visible = true;
  bool FullScreen = false;
  bool MenuBarVisible = true;
  bool CloseButton = true;
  bool Resizeable = false;
  bool LiveResize = false;
  bool MaximizeButton = false;
  bool MinimizeButton = true;
  std::int32_t MacProcId = 0;

 private:
  friend Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name);

  [[nodiscard]] Function handlerOf(const String& event) const;
  void raiseEvent(const String& event);

  std::vector<String> _mControlNames;       ///< by which the controls were entered
  std::vector<Ref<Control>> _mControlList;  ///< the controls themselves, in the same places
  Ref<Dictionary> _mMenuHandlers;
  Ref<veldrin::MenuBar> menuBar_;
  bool open_ = false;
};

/// The control of that name in the window, nil where there is none.
Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name);

/// The same, typed as the class `T`. Raises `IllegalCastException` for a control of another class.
template <class T>
Ref<T> RuntimeWindowControlByName(const Window& window, const String& name) {
  return CheckCast<T>(RuntimeWindowControlByName(window, name));
}

/// Works out afresh which items are enabled, those of the open window's bar or else of the
/// application's, and tells the toolkit.
void EnableMenuItems();

/// The open window of the class of that full name, nil where there is none.
Ref<Window> _GetImplicitWindow(const String& className);

}  // namespace veldrin
