#include "toolkits/qt/QtWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <algorithm>

#include "shell/window/ApplicationSession.h"
#include "shell/window/FocusOrder.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

Qt::WindowFlags flagsOf(const Window& window) {
  Qt::WindowFlags flags =
      Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
  flags.setFlag(Qt::WindowMinimizeButtonHint, window.MinimizeButton());
  flags.setFlag(Qt::WindowMaximizeButtonHint, window.MaximizeButton());
  flags.setFlag(Qt::WindowCloseButtonHint, window.CloseButton());
  return flags;
}

}  // namespace

QtWindow::QtWindow(Window& window, Delivery& delivery, const Editing& editing,
                   std::span<const SpokenName> names)
    : QMainWindow(nullptr, flagsOf(window)),
      window_(&window),
      delivery_(delivery),
      editing_(editing),
      content_(new QWidget(this)) {
  setCentralWidget(content_);
  // The window size follows from the content and the menu bar.
  if (!window.Resizeable()) layout()->setSizeConstraint(QLayout::SetFixedSize);
  makeControls();
  nameControls(names);
  fitFont();
  for (const auto& each : controls_) each.second->applyColours();
  chainFocus();
  if (!focusOrder_.empty()) qtControlOf(*focusOrder_.front())->takeFirstFocus();
}

void QtWindow::follow() {
  setWindowTitle(toQt(window_->Title()));
  content_->setFixedSize(window_->Width(), window_->Height());
  followMenus();
  if (isVisible() != window_->Visible()) setVisible(window_->Visible());
}

void QtWindow::followMenus() {
  const Ref<MenuBar> bar = window_->MenuBarVisible() ? menuBarOf(window_) : nullptr;
  if (bar && !menus_) menus_ = std::make_unique<QtMenus>(*menuBar(), delivery_, editing_);
  if (menus_) menus_->follow(bar);
}

void QtWindow::makeControls() {
  for (const Ref<Control>& control : window_->controls()) {
    if (qtControlOf(*control) != nullptr) continue;  // a control may have two names
    QtControl* const made = makeQtControl(control, delivery_, *content_);
    if (made == nullptr) continue;
    controls_.emplace_back(control.get(), made);
    made->widget().installEventFilter(this);
  }
}

void QtWindow::nameControls(std::span<const SpokenName> names) {
  for (const SpokenName& spoken : names) {
    const Ref<Object> control = RuntimeWindowControlByName(*window_, String(spoken.control));
    if (control)
      qtControlOf(*CheckCast<Control>(control))->setSpokenName(toQt(String(spoken.name)));
  }
  for (const auto& label : controls_) {
    for (const auto& field : controls_) {
      if (field.second->isNamedByLabel()) label.second->nameField(*field.second);
    }
  }
}

void QtWindow::chainFocus() {
  std::vector<const RectControl*> order;
  for (const Ref<RectControl>& control : focusOrder(*window_)) {
    if (qtControlOf(*control) != nullptr) order.push_back(control.get());
  }
  if (order == focusOrder_) return;
  for (std::size_t next = 1; next < order.size(); ++next) {
    setTabOrder(&qtControlOf(*order[next - 1])->widget(), &qtControlOf(*order[next])->widget());
  }
  focusOrder_ = std::move(order);
}

void QtWindow::fitFont() {
  constexpr double Step = 0.25;     // pixels
  constexpr double Smallest = 8.0;  // pixels; smaller is unreadable
  QFont font = QApplication::font();
  double pixels = QFontInfo(font).pixelSize();
  const auto allFit = [&] {
    return std::ranges::all_of(controls_, [&](const auto& c) { return c.second->fits(font); });
  };
  const double points = QFontInfo(font).pointSizeF();
  const double pointsPerPixel = points / pixels;
  while (pixels > Smallest && !allFit()) {
    pixels -= Step;
    font.setPointSizeF(pixels * pointsPerPixel);
  }
  for (const auto& [control, made] : controls_) made->applyFont(font);
}

QtControl* QtWindow::qtControlOf(const Control& control) const {
  const auto found = std::ranges::find(controls_, &control, [](const auto& c) { return c.first; });
  return found == controls_.end() ? nullptr : found->second;
}

void QtWindow::follow(const Control& control) {
  QtControl* const shown = qtControlOf(control);
  if (shown == nullptr) return;
  if (control.Window().get() == window_) {
    shown->follow();
  } else {
    std::erase_if(controls_, [&](const auto& each) { return each.second == shown; });
    shown->widget().hide();
    shown->widget().deleteLater();  // it may be handling an event
  }
  chainFocus();
}

void QtWindow::forgetWindow() {
  hide();
  window_ = nullptr;
}

void QtWindow::closeEvent(QCloseEvent* event) {
  // The framework decides whether the window closes; see windowClosed().
  event->ignore();
  if (window_ != nullptr) delivery_.deliver([this] { window_->Close(); });
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
  if (window_ == nullptr) return false;
  const QEvent::Type type = event->type();
  if (type == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    const bool isLent = reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason;
    if (!isLent) reportFocusLoss(*watched);
    return false;
  }
  if (type != QEvent::ShortcutOverride && type != QEvent::KeyPress) return false;
  auto& key = *static_cast<QKeyEvent*>(event);
  if (!menus_ || !menus_->hasShortcut(key.keyCombination())) return false;
  // Menu shortcuts take precedence over keys of the focused field.
  key.setAccepted(type == QEvent::KeyPress);
  return true;
}

void QtWindow::reportFocusLoss(const QObject& widget) {
  for (const auto& each : controls_) {
    if (&each.second->widget() == &widget) each.second->reportFocusLoss(delivery_);
  }
}

bool QtWindow::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool isHandled = QMainWindow::event(event);
  // After DeferredDelete this object no longer exists.
  if (type == QEvent::DeferredDelete || window_ == nullptr) return isHandled;
  switch (type) {
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
      delivery_.deliver([&] { window_->setActive(type == QEvent::WindowActivate); });
      break;
    case QEvent::Move:
      if (isVisible()) raiseEvent(Window::Events::Moved);
      break;
    case QEvent::WindowStateChange: {
      const auto oldState = static_cast<QWindowStateChangeEvent*>(event)->oldState();
      if (isMinimized() == oldState.testFlag(Qt::WindowMinimized)) break;
      raiseEvent(isMinimized() ? Window::Events::Minimize : Window::Events::Restore);
      break;
    }
    case QEvent::ApplicationFontChange:
    case QEvent::StyleChange:
      fitFont();
      break;
    case QEvent::ApplicationPaletteChange:
      for (const auto& each : controls_) each.second->applyColours();
      break;
    default:
      break;
  }
  return isHandled;
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
  // Only keys that no control has handled arrive here.
  const String letters = fromQt(event->text());
  bool isTaken = false;
  if (window_ != nullptr && !letters.isEmpty()) {
    delivery_.deliver([&] { isTaken = callHandler(*window_, Window::Events::KeyDown, letters); });
  }
  if (!isTaken) QMainWindow::keyPressEvent(event);
}

void QtWindow::raiseEvent(const Event<void()>& event) {
  delivery_.deliver([&] { callHandler(*window_, event); });
}

}  // namespace veldrin
