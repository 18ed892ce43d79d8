#pragma once

#include <QMainWindow>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/window/Window.h"
#include "toolkits/qt/QtControl.h"
#include "toolkits/qt/QtMenus.h"

namespace veldrin {

/// What a screen reader says of a control whose own text says too little.
struct SpokenName {
  std::string_view control;
  std::string_view name;
};

/// A window of the system on the desktop: menu bar above, content of fixed size below.
///
/// It follows the title, the size of the content, whether it shows, the bar of menus, and the
/// properties of its controls and menu items, but for these. They are taken as they stand when the
/// window opens or a menu is used, and kept only after that:
///
/// | property | reason |
/// |---|---|
/// | of a window: | |
/// | the three buttons, `Resizeable` | the frame is the window manager's, who is told once |
/// | `Placement`, `Frame`, `Composite`, `MacProcId` | the desktop has one kind, and places it |
/// | `FullScreen`, `LiveResize`, `MinWidth` and its kin | the content keeps its size |
/// | `HasBackColor`, `BackColor` | the desktop's texts show on its own background |
/// | of a control: | |
/// | `Name`, `Index`, `TabPanelIndex`, `DataSource`, `DataField` | they are there for the program |
/// | the locks | the content of the window keeps its size |
/// | `AutoDeactivate`, `UseFocusRing` | the desktop's style decides how a control looks |
/// | `Default`, `Cancel` | Return and Escape press no button of the form |
/// | `MultiLine` | a carriage return breaks the line of any text |
/// | `Format`, `Mask`, `AcceptTabs` | a field takes any letter, and Tab leaves it |
/// | `State` where it is neither | a box of the desktop has a tick or none |
/// | `Value` of a panel | a panel is a frame, and cannot be pressed |
/// | of a menu item: | |
/// | `Name`, `AutoEnable` | they are read when its menu opens and when it is chosen |
///
/// Which label names a field is found when the window opens, too, and controls that come later have
/// no widget.
class QtWindow final : public QMainWindow {
 public:
  QtWindow(Window& window, Delivery& delivery, const Editing& editing,
           std::span<const SpokenName> names);

  /// The window that this one shows, nil once that has been closed.
  [[nodiscard]] const Window* shown() const { return window_; }
  /// The window has been closed, and its object may go before this one does.
  void letGo();
  /// Shows what the program has changed: in a control, in the window, in the menus.
  void follow(const Control& control);
  void follow();
  void followMenus();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeControls();
  void nameControls(std::span<const SpokenName> names);
  void chainFocus();
  void fitFont();
  /// The focus has left the widget of a control.
  void leave(const QObject& widget);
  void raise(const Event<void()>& event);
  [[nodiscard]] QtControl* shownAs(const Control& control) const;

  Window* window_;
  Delivery& delivery_;
  const Editing& editing_;
  QWidget* content_;
  std::vector<std::pair<const Control*, QtControl*>> controls_;
  std::vector<const RectControl*> focusOrder_;
  std::unique_ptr<QtMenus> menus_;  ///< nil until there is a bar
};

}  // namespace veldrin
