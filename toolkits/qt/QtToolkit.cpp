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

/// The desktop's theme is not asked: what is installed there is the same picture, and the search
/// for it costs a start three milliseconds.
QIcon iconOfTheProgram() {
  QIcon icon;
  for (const QFileInfo& picture : QDir(":/icons").entryInfoList()) icon.addFile(picture.filePath());
  return icon;
}

void complain(const QString& reason) {
  static_cast<void>(std::fprintf(stderr, "veldrin: %s\n", reason.toLocal8Bit().constData()));
}

}  // namespace

QtToolkit::Application::Application(const NoDisplay& /*watch*/)
    : QApplication(argumentCount, programArguments) {
  // Qt has just set the whole locale of the C library; a number has its point everywhere.
  std::setlocale(LC_NUMERIC, "C");
  setDesktopFileName("org.veldrin.Veldrin");
  setWindowIcon(iconOfTheProgram());
  setQuitOnLastWindowClosed(false);
  QAccessible::installFactory(&spokenTickBox);
  // Qt's save dialog would keep a file of its own about where it was; this program keeps nothing.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
}

QtToolkit::QtToolkit(std::span<const SpokenName> names) : names_(names), application_(NoDisplay()) {
  QObject::connect(&application_, &QGuiApplication::applicationStateChanged,
                   [this](Qt::ApplicationState state) { turnTo(state == Qt::ApplicationActive); });
}

QtToolkit::~QtToolkit() = default;

void QtToolkit::windowOpened(Window& window) {
  ended_ = false;
  windows_.push_back(std::make_unique<QtWindow>(window, delivery_, editing_, names_));
  windows_.back()->follow();
}

void QtToolkit::windowClosed(Window& window) {
  const auto found =
      std::ranges::find_if(windows_, [&](const auto& shown) { return shown->shown() == &window; });
  if (found == windows_.end()) return;
  const bool insideOfIt = delivery_.isHeld();
  // A widget that goes loses the focus, which nobody has to hear of any more.
  const Delivery::Hold hold(delivery_);
  std::unique_ptr<QtWindow> closed = std::move(*found);
  windows_.erase(found);
  closed->letGo();
  if (insideOfIt) closed.release()->deleteLater();
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
  sayInBox(front(), toQt(text));
}

void QtToolkit::run() {
  running_ = true;
  const int stop = stopSignalDescriptor();
  std::optional<QSocketNotifier> notifier;
  if (stop >= 0) {
    notifier.emplace(stop, QSocketNotifier::Read);
    // The loops of open dialogs end with it: a dialog counts as cancelled.
    QObject::connect(&*notifier, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  }
  if (!ended_) QApplication::exec();
  running_ = false;
  delivery_.raiseAgain();
}

void QtToolkit::quit() {
  ended_ = true;
  // Outside of the loop it would end the next dialog, whenever that comes.
  if (running_) QCoreApplication::exit();
}

void QtToolkit::backgroundTask() {
  // Only what has to be painted again: no input, so that no handler runs inside another.
  for (const auto& window : windows_) {
    QCoreApplication::sendPostedEvents(window.get(), QEvent::UpdateRequest);
  }
}

void QtToolkit::reportUnhandledException(const RuntimeException& exception,
                                         const String& sentence) {
  if (RuntimeObjectIsa(&exception, EndException::__Lookup())) return complain(toQt(sentence));
  report(toQt(sentence));
}

void QtToolkit::reportFault(const String& sentence) {
  report(toQt(sentence));
}

void QtToolkit::reportLost() noexcept {
  static_cast<void>(std::fputs("veldrin: There is not enough memory.\n", stderr));
}

void QtToolkit::turnTo(bool active) {
  const Ref<veldrin::Application> application = registeredApplication();
  if (application) delivery_.deliver([&] { application->userTurnedTo(active); });
}

void QtToolkit::report(const QString& reason) {
  complain(reason);
  // The box takes the focus from a field, whose handler may be the one that has failed.
  const Delivery::Hold hold(delivery_);
  sayFailure(front(), reason);
}

QWidget* QtToolkit::front() const {
  return windows_.empty() ? nullptr : windows_.back().get();
}

}  // namespace veldrin
