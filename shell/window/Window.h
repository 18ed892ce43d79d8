#pragma once

#include <array>
#include <vector>

#include "shell/objects/Color.h"
#include "shell/objects/Delegate.h"
#include "shell/objects/Described.h"
#include "shell/objects/Dictionary.h"
#include "shell/window/Control.h"
#include "shell/window/DragItem.h"
#include "shell/window/MenuItem.h"

namespace veldrin {

/// A window with its controls. It is made in two steps, `New` and `Constructor`; the second raises
/// the events of its opening, in this order: "Layout", "CreateControls", "AddMenuHandlers",
/// "SetupBindings", the "Open" of each control, then its own "Open". An open window lives until it
/// is closed, whoever holds it besides. A window that is closed in the middle of its opening, or
/// whose opening fails, is never shown, and no further event of the opening is raised.
class Window : public Described<Window, Object> {
 public:
  static constexpr FixedString FullName = "Window";
  static void fillTable(ClassTable<Window>& table);

  /// The events of a window, in the order of its table, with what their handlers take and give.
  /// True is for handled, and for refused in "CancelClose", which is told whether the application
  /// quits. "Activate" and "Deactivate" come in turn, also around a dialog; "KeyDown" comes with
  /// the letters of a key that no control takes. What is raised by no toolkit so far: "KeyUp", the
  /// events of the mouse, of dragging and of contextual menus, "Paint", "Resizing", "Resized" and
  /// "Maximize", as the form draws nothing, takes nothing and keeps its size.
  struct Events {
    static constexpr Event<void()> Layout{"Layout"_s};
    static constexpr Event<void()> CreateControls{"CreateControls"_s};
    static constexpr Event<void()> AddMenuHandlers{"AddMenuHandlers"_s};
    static constexpr Event<void()> SetupBindings{"SetupBindings"_s};
    static constexpr Event<void()> Open{"Open"_s};
    static constexpr Event<void()> Close{"Close"_s};
    static constexpr Event<bool(bool)> CancelClose{"CancelClose"_s};
    static constexpr Event<bool(String)> KeyDown{"KeyDown"_s};
    static constexpr Event<void(String)> KeyUp{"KeyUp"_s};
    static constexpr Event<void(std::int32_t, std::int32_t)> MouseMove{"MouseMove"_s};
    static constexpr Event<void()> MouseEnter{"MouseEnter"_s};
    static constexpr Event<void()> MouseExit{"MouseExit"_s};
    static constexpr Event<void(Ref<Object>)> Paint{"Paint"_s};
    static constexpr Event<bool(std::int32_t, std::int32_t)> MouseDown{"MouseDown"_s};
    static constexpr Event<void(std::int32_t, std::int32_t)> MouseDrag{"MouseDrag"_s};
    static constexpr Event<void(std::int32_t, std::int32_t)> MouseUp{"MouseUp"_s};
    static constexpr Event<void()> EnableMenuItems{"EnableMenuItems"_s};
    static constexpr Event<void()> Resized{"Resized"_s};
    static constexpr Event<void()> Resizing{"Resizing"_s};
    static constexpr Event<void()> Moved{"Moved"_s};
    static constexpr Event<void(Ref<DragItem>, String)> DropObject{"DropObject"_s};
    static constexpr Event<void()> Activate{"Activate"_s};
    static constexpr Event<void()> Deactivate{"Deactivate"_s};
    static constexpr Event<void()> Minimize{"Minimize"_s};
    static constexpr Event<void()> Maximize{"Maximize"_s};
    static constexpr Event<void()> Restore{"Restore"_s};
    static constexpr Event<bool(std::int32_t, std::int32_t, std::int32_t, std::int32_t)> MouseWheel{
        "MouseWheel"_s};
    static constexpr Event<bool(Ref<MenuItem>, std::int32_t, std::int32_t)> ConstructContextualMenu{
        "ConstructContextualMenu"_s};
    static constexpr Event<bool(Ref<MenuItem>)> ContextualMenuAction{"ContextualMenuAction"_s};
    static constexpr Event<bool(Ref<DragItem>, String)> DragEnter{"DragEnter"_s};
    static constexpr Event<void(Ref<DragItem>, String)> DragExit{"DragExit"_s};
    static constexpr Event<bool(std::int32_t, std::int32_t, Ref<DragItem>, String)> DragOver{
        "DragOver"_s};
  };

  /// `RuntimeCreateWindow`: enters the window among the open ones.
  void __Init();
  /// `RuntimeViewDestructor`: lets go of the toolkit's window and of the controls.
  void __Exit();
  /// `WindowDefaultConstructor`: raises the events of the opening and hands the window to the
  /// toolkit.
  void Constructor();

  /// A new object of the class that belongs to this window; so controls and dates are made.
  [[nodiscard]] Ref<Object> __New(ClassRecord* record) const { return RuntimeNewObject(record); }

  /// Enters a control under its name, and takes it out of another window. Where a control of that
  /// name stands already, the name finds the new one from then on; the old one stays in the window.
  /// A toolkit does not show what comes into an open window. Raises `IllegalCastException` for what
  /// is no control.
  void _AddControl(const String& name, const Ref<Object>& control);

  /// Takes a control away, under whatever names it has; a closing control comes to this. The
  /// reference may be an element of the window's own list.
  void _RemoveControl(const Ref<Control>& control);

  /// Closes the window as its close button does.
  void Close() { _UnifiedClose(false); }
  /// Closes the controls and takes the window from the open ones. False where the handler of
  /// "CancelClose" says no, which is told whether the application is quitting, and where the window
  /// is being closed already. A closed window has nothing left to do. With the last window the
  /// application may end, see `Application::AutoQuit`.
  bool _UnifiedClose(bool quitting);
  /// Takes the window from the toolkit and from the open ones, without asking or telling it.
  void leave();

  /// A property that the toolkit is told of while the window is open.
  template <class T>
  using Live = LiveProperty<Window, T>;

  Live<Ref<veldrin::MenuBar>> MenuBar{*this};  ///< the bar of menus, or nil

  /// Notes that the window waits for a redraw, until it is closed; a closed one waits for none.
  void _AddDirtyWindow();

  /// The window has become the active one: raises "Activate" and enables the menu items afresh.
  void _CallActivated();
  /// The window is no longer the active one, likewise.
  void _CallDeactivated();
  /// The window has come to the front or gone from there; does nothing where it is so already.
  void userTurnedTo(bool active);
  [[nodiscard]] bool isActive() const { return active_; }

  /// Binds the menu item of that name to a handler of the window; with nil, the item is enabled and
  /// goes its own way.
  void _AddMenuHandler(const String& name, const Ref<Delegate>& handler);
  /// Calls the handler that is bound to the menu item of that name; false where there is none.
  bool callMenuHandler(const String& name);
  /// Whether the menu item of that name has been bound, be it to nil.
  [[nodiscard]] bool hasMenuHandler(const String& name) const;
  /// Raises "EnableMenuItems" and enables those of the items that have a handler of the window.
  void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);
  /// The first that is asked to handle a menu item that a person has chosen. This one does nothing
  /// and answers false.
  virtual bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// The controls in the order in which they were made.
  [[nodiscard]] const std::vector<Ref<Control>>& controls() const { return _mControlList; }

  /// Whether the opening has run to its end.
  [[nodiscard]] bool isOpen() const { return open_; }

  std::int32_t Placement = 0;       ///< 0: the toolkit chooses the place on the screen
  Live<std::int32_t> Width{*this};  ///< of the content, pixels, as the heights
  Live<std::int32_t> Height{*this};
  Live<std::int32_t> MinWidth{*this};
  Live<std::int32_t> MinHeight{*this};
  Live<std::int32_t> MaxWidth{*this};
  Live<std::int32_t> MaxHeight{*this};
  std::int32_t Frame = 0;  ///< 0: a document window with a title bar
  bool Composite = false;
  Live<bool> HasBackColor{*this};
  Live<Color> BackColor{*this, White};
  Live<String> Title{*this};
  Live<bool> Visible{*this, true};
  Live<bool> FullScreen{*this};
  Live<bool> MenuBarVisible{*this, true};
  Live<bool> CloseButton{*this, true};
  Live<bool> Resizeable{*this};
  bool LiveResize = false;
  Live<bool> MaximizeButton{*this};
  Live<bool> MinimizeButton{*this, true};
  std::int32_t MacProcId = 0;

 private:
  friend Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name);
  template <class Owner, class T>
  friend class veldrin::LiveProperty;

  /// Tells the toolkit of a change made by the program.
  void changed();
  void raiseTheOpening();

  std::vector<String> _mControlNames;  ///< by which the controls were entered
  /// Where a name was found the last time, counted from 1, by the address of its record: a hint
  /// that is forgotten when controls come or go.
  mutable std::array<std::uint8_t, 64> places_{};
  std::vector<Ref<Control>> _mControlList;  ///< the controls themselves, in the same places
  Ref<Dictionary> _mMenuHandlers;
  bool open_ = false;
  bool active_ = false;
  bool closing_ = false;
  bool closed_ = false;
};

/// What the framework keeps of the windows of the process.
struct WindowSupport {
  std::vector<Ref<Window>> Windows;  ///< the open windows, which live because they are here
  Ref<Dictionary> mDirtyWindows;     ///< the windows that wait for a redraw; made on first use
};
inline WindowSupport _WindowSupport;

/// The implicit windows by class name. Stays nil: `_GetImplicitWindow` searches the open windows.
/// It exists because the framework's conventions name it among the globals of a program.
inline Ref<Dictionary> _mImplicitWindowList;

/// Takes the windows that are still open down, without asking anything.
void leaveAllWindows();

/// The control of that name in the window, nil where there is none.
Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name);

/// The same, typed as the class `T`. Raises `IllegalCastException` for a control of another class.
template <class T>
Ref<T> RuntimeWindowControlByName(const Window& window, const String& name) {
  return CheckCast<T>(RuntimeWindowControlByName(window, name));
}

/// The open window that is the active one, else the one that was opened last; nil without any.
Ref<Window> frontWindow();

/// The open window of the class of that full name, nil where there is none.
Ref<Window> _GetImplicitWindow(const String& className);

}  // namespace veldrin
