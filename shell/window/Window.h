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

/// A window with its controls. `New` makes it; `Constructor` opens it and raises, in this order,
/// "Layout", "CreateControls", "AddMenuHandlers", "SetupBindings", the "Open" of each control, and
/// the window's "Open". The framework keeps a reference to each window until it is closed. If a
/// handler closes the window or throws during the opening, the remaining events are not raised and
/// the window is never shown.
class Window : public Described<Window, Object> {
 public:
  static constexpr FixedString FullName = "Window";
  static void fillTable(ClassTable<Window>& table);

  /// The events of a window, in the order of its table. A handler with a result returns true for
  /// handled. The handler of "CancelClose" gets true if the application is quitting, and returns
  /// true to refuse. "Activate" and "Deactivate" alternate; a dialog deactivates an active window
  /// while shown. "KeyDown" gets the characters of a key that no control has handled. No toolkit
  /// raises "KeyUp", "Paint", "Resizing", "Resized", "Maximize" or the events of the mouse, of
  /// dragging and of contextual menus. They exist because the framework's conventions ask for them.
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

  /// Adds the window to `WindowSupport::Windows`. The framework's conventions call this hook
  /// `RuntimeCreateWindow`.
  void __Init();
  /// Removes the window from the toolkit and releases the controls. The framework's conventions
  /// call this hook `RuntimeViewDestructor`.
  void __Exit();
  /// Raises the events of the opening and passes the window to the toolkit. The framework's
  /// conventions call this method `WindowDefaultConstructor`.
  virtual void Constructor();

  /// Makes an object of a class. The form makes its controls and dates with this method.
  [[nodiscard]] virtual Ref<Object> __New(ClassRecord* record) const {
    return RuntimeNewObject(record);
  }

  /// Adds a control under a name and removes it from any other window. If the name is taken, later
  /// look-ups find the new control; the old one stays in the window. Toolkits do not show a control
  /// added to an open window. Raises `IllegalCastException` if the object is not a control.
  virtual void _AddControl(const String& name, const Ref<Object>& control);

  /// Removes a control under all its names. `control` may refer into the window's own list.
  virtual void _RemoveControl(const Ref<Control>& control);

  /// Closes the window as its close button does.
  virtual void Close() { _UnifiedClose(false); }
  /// Closes the controls and the window. Returns false if the handler of "CancelClose" refuses or
  /// the window is already being closed. Returns true for a closed window. Unless `quitting`,
  /// closing the last window may end the application, see `Application::AutoQuit`.
  virtual bool _UnifiedClose(bool quitting);
  /// Closes the window without raising an event; nothing can refuse.
  void discard();

  /// A property whose changes are reported to the toolkit while the window is open.
  template <class T>
  using Live = LiveProperty<Window, T>;

  Live<Ref<veldrin::MenuBar>> MenuBar{*this};  ///< nil for the application's bar

  /// Marks the window, unless closed, as waiting for a redraw. It exists because the framework's
  /// conventions ask for it; nothing in Veldrin calls it.
  virtual void _AddDirtyWindow();

  /// Marks the window active, raises "Activate" and refreshes the menu items.
  virtual void _CallActivated();
  /// Marks the window inactive, raises "Deactivate" and refreshes the menu items.
  virtual void _CallDeactivated();
  /// Calls `_CallActivated` or `_CallDeactivated` if the window is not in that state yet.
  void setActive(bool active);
  [[nodiscard]] bool isActive() const { return isActive_; }

  /// Binds the menu item of that name to a handler. With a nil handler, the item is enabled and
  /// keeps its own "Action".
  virtual void _AddMenuHandler(const String& name, const Ref<Delegate>& handler);
  /// Calls the handler bound to the menu item of that name. Returns false if there is none.
  bool callMenuHandler(const String& name);
  /// Whether the menu item of that name has been bound, also if bound to nil.
  [[nodiscard]] bool hasMenuHandler(const String& name) const;
  /// Raises "EnableMenuItems" and enables the items for which `hasMenuHandler` is true.
  virtual void _EnableMenuItems(const Ref<Array<Ref<MenuItem>>>& items);
  /// Called first when the user chooses a menu item, see `Session::handleMenuCommand`. An override
  /// returns true for handled.
  virtual bool _HandleMenuCommand(const Ref<MenuItem>& /*item*/) { return false; }

  /// The controls in the order of adding.
  [[nodiscard]] const std::vector<Ref<Control>>& controls() const { return _mControlList; }

  /// Whether the opening is complete and the window is not closed.
  [[nodiscard]] bool isOpen() const { return isOpen_; }

  std::int32_t Placement = 0;       ///< 0: the toolkit chooses the place on the screen
  Live<std::int32_t> Width{*this};  ///< the width of the content, in pixels, like all sizes here
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
  void raiseOpeningEvents();

  std::vector<String> _mControlNames;
  /// A cache of `RuntimeWindowControlByName`, indexed by a hash of the name's address: 1 plus the
  /// control's index, or 0 for none. Cleared when controls are added or removed.
  mutable std::array<std::uint8_t, 64> lookUpCache_{};
  std::vector<Ref<Control>> _mControlList;  ///< parallel to `_mControlNames`
  Ref<Dictionary> _mMenuHandlers;
  bool isOpen_ = false;
  bool isActive_ = false;
  bool isClosing_ = false;
  bool isClosed_ = false;
};

/// The framework's state for all windows of the process.
struct WindowSupport {
  std::vector<Ref<Window>> Windows;  ///< the windows not closed yet; keeps them alive
  Ref<Dictionary> mDirtyWindows;     ///< see `Window::_AddDirtyWindow`; nil until used
};
inline WindowSupport _WindowSupport;

/// The implicit windows by class name. It exists because the framework's conventions ask for it; it
/// stays nil, and `_GetImplicitWindow` searches `WindowSupport::Windows` instead.
inline Ref<Dictionary> _mImplicitWindowList;

/// Closes all windows without raising events.
void removeAllWindows();

/// The control of that name in the window, or nil.
Ref<Object> RuntimeWindowControlByName(const Window& window, const String& name);

/// The control of that name as a `T`, or nil. Raises `IllegalCastException` for a control of
/// another class.
template <class T>
Ref<T> RuntimeWindowControlByName(const Window& window, const String& name) {
  return CheckCast<T>(RuntimeWindowControlByName(window, name));
}

/// The active window, else the newest one that is not closed, else nil.
Ref<Window> frontWindow();

/// The oldest window that is not closed and whose class has that full name, or nil.
Ref<Window> _GetImplicitWindow(const String& className);

}  // namespace veldrin
