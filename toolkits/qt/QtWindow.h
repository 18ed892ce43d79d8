#pragma once

#include <QMainWindow>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/Window.h"
#include "toolkits/qt/QtControl.h"
#include "toolkits/qt/QtMenus.h"

namespace veldrin {

/// What a screen reader says of a control whose own text says too little.
struct SpokenName {
  std::string_view control;
  std::string_view name;
};

/// A window of the system on the desktop: menu bar above, content of fixed size below.
class QtWindow final : public QMainWindow {
 public:
  QtWindow(Window& window, Delivery& delivery, const Editing& editing,
           std::span<const SpokenName> names);

  /// The window that this one shows, nil once that has been closed.
  [[nodiscard]] const Window* shown() const { return window_; }
  /// The window has been closed, and its object may go before this one does.
  void letGo();
  void follow(const Control& control);
  void enableMenuItems();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void makeControls();
  void nameControls(std::span<const SpokenName> names);
  void chainFocus();
  void fitFont();
  void brightenFrames();
  [[nodiscard]] QWidget* widgetOf(const Control& control) const;

  Window* window_;
  Delivery& delivery_;
  QWidget* content_;
  std::vector<std::pair<const Control*, QtControl*>> controls_;
  std::unique_ptr<QtMenus> menus_;
};

}  // namespace veldrin
