#include "toolkits/qt/QtToolkit.h"

#include <QAccessible>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QSocketNotifier>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <optional>

#include "shell/host/StopSignal.h"
#include "shell/objects/Failure.h"
#include "shell/window/Application.h"
#include "toolkits/qt/QtDialogs.h"
#include "toolkits/qt/QtText.h"
#include "toolkits/qt/SpokenTickBox.h"

namespace veldrin {
namespace {

char programName[] = "veldrin";
char* programArguments[] = {programName, nullptr};
int argumentCount = 1;

/// Not from the icon theme: that has the same picture, and searching it costs 3 ms at start.
QIcon programIcon() {
  QIcon icon;
  for (const QFileInfo& picture : QDir(":/icons").entryInfoList()) icon.addFile(picture.filePath());
  return icon;
}

void writeToStandardError(const QString& reason) {
  static_cast<void>(std::fprintf(stderr, "veldrin: %s\n", reason.toLocal8Bit().constData()));
}

}  // namespace

QtToolkit::QtApplication::QtApplication(const DisplayErrorGuard& /*watch*/)
    : QApplication(argumentCount, programArguments) {
  // QApplication has set the locale of the C library; numbers need a decimal point.
  std::setlocale(LC_NUMERIC, "C");
  setDesktopFileName("org.veldrin.Veldrin");
  setWindowIcon(programIcon());
  setQuitOnLastWindowClosed(false);
  QAccessible::installFactory(&makeAccessibleTickBox);
  // Prevents Qt's save dialog from writing a settings file.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

QtToolkit::QtToolkit(std::span<const SpokenName> names)
    : names_(names), application_(DisplayErrorGuard()) {
  QObject::connect(
      &application_, &QGuiApplication::applicationStateChanged,
      [this](Qt::ApplicationState state) { reportActivation(state == Qt::ApplicationActive); });
}

QtToolkit::~QtToolkit() = default;

void QtToolkit::windowOpened(Window& window) {
  hasQuit_ = false;
  windows_.push_back(std::make_unique<QtWindow>(window, delivery_, editing_, names_));
  windows_.back()->follow();
}

void QtToolkit::windowClosed(Window& window) {
  const auto found =
      std::ranges::find_if(windows_, [&](const auto& shown) { return shown->shown() == &window; });
  if (found == windows_.end()) return;
  const bool isInsideHandler = delivery_.isHeld();
  // Do not deliver focus changes caused by destroying the widgets.
  const Delivery::Hold hold(delivery_);
  std::unique_ptr<QtWindow> closed = std::move(*found);
  windows_.erase(found);
  closed->forgetWindow();
  if (isInsideHandler) closed.release()->deleteLater();
}

void QtToolkit::controlChanged(Control& control) {
  for (const auto& window : windows_) window->follow(control);
}

void QtToolkit::windowChanged(Window& window) {
  for (const auto& shown : windows_) {
    if (shown->shown() == &window) shown->follow();
  }
}

void QtToolkit::menusChanged() {
  for (const auto& window : windows_) window->followMenus();
}

bool QtToolkit::hasOwnMenuBar() const {
  return QGuiApplication::platformName() == "cocoa";
}

Ref<FolderItem> QtToolkit::getSaveFolderItem(const String& filter, const String& defaultName) {
  return askWhereToSave(front(), filter, defaultName);
}

void QtToolkit::messageBox(const String& text) {
  showMessage(front(), toQt(text));
}

void QtToolkit::run() {
  isRunning_ = true;
  const int stop = stopSignalDescriptor();
  std::optional<QSocketNotifier> notifier;
  if (stop >= 0) {
    notifier.emplace(stop, QSocketNotifier::Read);
    // Also ends the loops of open dialogs, which then count as cancelled.
    QObject::connect(&*notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  }
  if (!hasQuit_) QApplication::exec();
  isRunning_ = false;
  delivery_.raiseAgain();
}

void QtToolkit::quit() {
  hasQuit_ = true;
  // Without a running loop, exit() would end the next dialog.
  if (isRunning_) QCoreApplication::exit();
}

void QtToolkit::backgroundTask() {
  // Repaints only; no input events, so that no handler runs inside another.
  for (const auto& window : windows_) {
    QCoreApplication::sendPostedEvents(window.get(), QEvent::UpdateRequest);
  }
}

void QtToolkit::reportUnhandledException(const RuntimeException& exception,
                                         const String& sentence) {
  if (RuntimeObjectIsa(&exception, EndException::__Lookup()))
    return writeToStandardError(toQt(sentence));
  report(toQt(sentence));
}

void QtToolkit::reportFault(const String& sentence) {
  report(toQt(sentence));
}

void QtToolkit::reportLost() noexcept {
  static_cast<void>(std::fputs("veldrin: There is not enough memory.\n", stderr));
}

void QtToolkit::reportActivation(bool active) {
  const Ref<Application> application = registeredApplication();
  if (application) delivery_.deliver([&] { application->userTurnedTo(active); });
}

void QtToolkit::report(const QString& reason) {
  writeToStandardError(reason);
  // The box takes the focus from a field, whose focus handler must not run again: it may have
  // failed.
  const Delivery::Hold hold(delivery_);
  showFailure(front(), reason);
}

QWidget* QtToolkit::front() const {
  return windows_.empty() ? nullptr : windows_.back().get();
}

}  // namespace veldrin
