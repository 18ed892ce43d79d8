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

/// The name that a screen reader speaks for a control whose text says too little.
struct SpokenName {
  std::string_view control;
  std::string_view name;
};

/// The Qt side of a `Window`: a menu bar above content that the user cannot resize.
///
/// It mirrors changes of the title, content size, visibility and menu bar, and of the properties of
/// controls and menu items, except these, which are read when the window opens or a menu is used,
/// or never:
///
/// | property | reason |
/// |---|---|
/// | of a window: | |
/// | `CloseButton` and similar, `Resizeable` | set when the window is created |
/// | `Placement`, `Frame`, `Composite`, `MacProcId` | the desktop decides |
/// | `FullScreen`, `LiveResize`, `MinWidth` and similar | the content keeps its size |
/// | `HasBackColor`, `BackColor` | desktop text colours need the desktop background |
/// | of a control: | |
/// | `Name`, `Index`, `TabPanelIndex`, `DataSource`, `DataField` | for use by the program only |
/// | `LockLeft` and the other three | the content keeps its size |
/// | `AutoDeactivate`, `UseFocusRing` | the desktop's style decides how a control looks |
/// | `Default`, `Cancel` | Return and Escape press no button of the form |
/// | `MultiLine` | a carriage return in a `StaticText` always starts a new line |
/// | `Format`, `Mask`, `AcceptTabs` | a field accepts any character; Tab moves the focus |
/// | `State` "indeterminate" | a check box is either ticked or not |
/// | `Value` of a panel | a panel cannot be pressed |
/// | of a menu item: | |
/// | `Name`, `AutoEnable` | read when the menu opens or the item is chosen |
///
/// Labels are matched to fields only when the window opens. Controls added later get no widget.
class QtWindow final : public QMainWindow {
 public:
  QtWindow(Window& window, Delivery& delivery, const Editing& editing,
           std::span<const SpokenName> names);

  /// The mirrored window; nil after `forgetWindow()`.
  [[nodiscard]] const Window* mirrored() const { return window_; }
  /// Call when the `Window` is closed: it may be destroyed before this `QtWindow`.
  void forgetWindow();
  /// Each updates the Qt side: from a control, from the window, from the menu bar.
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
  /// Finds the control of the widget and tells it that it lost the focus.
  void reportFocusLoss(const QObject& widget);
  void raiseEvent(const Event<void()>& event);
  [[nodiscard]] QtControl* qtControlOf(const Control& control) const;

  Window* window_;
  Delivery& delivery_;
  const Editing& editing_;
  QWidget* content_;
  std::vector<std::pair<const Control*, QtControl*>> controls_;
  std::vector<const RectControl*> focusOrder_;
  std::unique_ptr<QtMenus> menus_;  ///< nil until a bar is shown
};

}  // namespace veldrin
