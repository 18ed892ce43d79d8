#include "toolkits/qt/QtWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <algorithm>

#include "shell/FocusOrder.h"
#include "shell/StaticText.h"
#include "shell/TextField.h"
#include "toolkits/qt/LineColour.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

Qt::WindowFlags flagsOf(const Window& window) {
  Qt::WindowFlags flags =
      Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
  flags.setFlag(Qt::WindowMinimizeButtonHint, window.MinimizeButton);
  flags.setFlag(Qt::WindowMaximizeButtonHint, window.MaximizeButton);
  flags.setFlag(Qt::WindowCloseButtonHint, window.CloseButton);
  return flags;
}

/// Whether the text stands to the left of the field in one row of one panel, and so names it.
bool isLabelOf(const StaticText& text, const TextField& field) {
  const std::int32_t middle = text.Top + text.Height / 2;
  return text.InitialParent == field.InitialParent && text.Left + text.Width <= field.Left &&
         middle >= field.Top && middle < field.Top + field.Height;
}

}  // namespace

QtWindow::QtWindow(Window& window, Delivery& delivery, const Editing& editing,
                   std::span<const SpokenName> names)
    : QMainWindow(nullptr, flagsOf(window)),
      window_(&window),
      delivery_(delivery),
      content_(new QWidget(this)) {
  setWindowTitle(toQt(window.Title));
  content_->setFixedSize(window.Width, window.Height);
  setCentralWidget(content_);
  // The window takes the size that its content and its menu bar come to, whatever the bar's height.
  if (!window.Resizeable) layout()->setSizeConstraint(QLayout::SetFixedSize);
  makeControls();
  nameControls(names);
  fitFont();
  brightenFrames();
  chainFocus();
  if (window.MenuBarVisible && window.MenuBar()) {
    menus_ = std::make_unique<QtMenus>(*menuBar(), *window.MenuBar(), delivery, editing);
  }
}

void QtWindow::makeControls() {
  for (const Ref<Control>& control : window_->controls()) {
    QtControl* const made = makeQtControl(control, delivery_, *content_);
    if (made != nullptr) controls_.emplace_back(control.get(), made);
  }
}

void QtWindow::nameControls(std::span<const SpokenName> names) {
  for (const SpokenName& spoken : names) {
    const Ref<Object> control = RuntimeWindowControlByName(*window_, String(spoken.control));
    if (!control) continue;
    QWidget* const widget = widgetOf(*CheckCast<Control>(control));
    const QString name = toQt(String(spoken.name));
    widget->setAccessibleName(name);
    // On some desktops the name that is said of a list is its selected row, whatever it is called.
    if (qobject_cast<QComboBox*>(widget) != nullptr) widget->setAccessibleDescription(name);
  }
  for (const auto& each : controls_) {
    auto* const label = qobject_cast<QLabel*>(&each.second->widget());
    if (label == nullptr) continue;
    const auto& text = static_cast<const StaticText&>(*each.first);
    const auto field = std::ranges::find_if(controls_, [&](const auto& other) {
      return RuntimeObjectIsa(other.first, TextField::__Lookup()) &&
             isLabelOf(text, static_cast<const TextField&>(*other.first));
    });
    if (field != controls_.end()) label->setBuddy(&field->second->widget());
  }
}

void QtWindow::chainFocus() {
  QWidget* before = nullptr;
  for (const Ref<RectControl>& control : focusOrder(*window_)) {
    QWidget* const widget = widgetOf(*control);
    if (before == nullptr) {
      widget->setFocus(Qt::TabFocusReason);
      if (auto* const field = qobject_cast<QLineEdit*>(widget)) field->selectAll();
    } else {
      setTabOrder(before, widget);
    }
    before = widget;
  }
}

void QtWindow::fitFont() {
  constexpr double Step = 0.25;     // pixels
  constexpr double Smallest = 8.0;  // pixels; below that nobody reads
  QFont font = QApplication::font();
  double pixels = QFontInfo(font).pixelSize();
  const auto allFit = [&] {
    return std::ranges::all_of(controls_, [&](const auto& c) { return c.second->fits(font); });
  };
  const double points = QFontInfo(font).pointSizeF();
  const double pointsAPixel = points / pixels;
  while (pixels > Smallest && !allFit()) {
    pixels -= Step;
    font.setPointSizeF(pixels * pointsAPixel);
  }
  for (const auto& [control, made] : controls_) made->write(font);
}

void QtWindow::brightenFrames() {
  // Some styles darken the background to frame a field or a box, which nobody sees on a dark one.
  constexpr int AsTheyDarken = 140;  // percent
  QPalette own;
  const QPalette desktop = QApplication::palette();
  if (isDark(desktop)) own.setColor(QPalette::Window, lineColour(desktop).lighter(AsTheyDarken));
  for (const auto& each : controls_) {
    QWidget& widget = each.second->widget();
    const bool isFramed = qobject_cast<QLineEdit*>(&widget) || qobject_cast<QCheckBox*>(&widget);
    if (isFramed) widget.setPalette(own);
  }
}

QWidget* QtWindow::widgetOf(const Control& control) const {
  const auto found = std::ranges::find(controls_, &control, [](const auto& c) { return c.first; });
  return found == controls_.end() ? nullptr : &found->second->widget();
}

void QtWindow::follow(const Control& control) {
  for (const auto& [candidate, made] : controls_) {
    if (candidate == &control) made->follow();
  }
}

void QtWindow::letGo() {
  hide();
  window_ = nullptr;
}

void QtWindow::enableMenuItems() {
  if (menus_) menus_->enable();
}

void QtWindow::closeEvent(QCloseEvent* event) {
  // The window goes when the system says that it does.
  event->ignore();
  if (window_ != nullptr) delivery_.deliver([this] { window_->Close(); });
}

bool QtWindow::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool done = QMainWindow::event(event);
  // Behind a deferred deletion there is no window left to look into.
  if (type == QEvent::DeferredDelete || window_ == nullptr) return done;
  if (type == QEvent::WindowActivate) delivery_.deliver([this] { window_->_CallActivated(); });
  if (type == QEvent::WindowDeactivate) delivery_.deliver([this] { window_->_CallDeactivated(); });
  if (type == QEvent::ApplicationFontChange || type == QEvent::StyleChange) fitFont();
  if (type == QEvent::ApplicationPaletteChange) brightenFrames();
  return done;
}

}  // namespace veldrin
