#include "toolkits/qt/QtToolkit.h"

#include <QAccessible>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QSocketNotifier>
#include <algorithm>
#include <clocale>
#include <optional>

#include "shell/host/Complaint.h"
#include "shell/host/StopSignal.h"
#include "shell/objects/Failure.h"
#include "shell/objects/ScopedFlag.h"
#include "shell/window/Application.h"
#include "toolkits/qt/AccessibleTickBox.h"
#include "toolkits/qt/QtDialogs.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

char programName[] = "veldrin";
char* programArguments[] = {programName, nullptr};
int argumentCount = 1;

/// Uses the resources: the icon theme has the same picture, but searching it takes 3 ms at start.
QIcon programIcon() {
  QIcon icon;
  for (const QFileInfo& picture : QDir(":/icons").entryInfoList()) icon.addFile(picture.filePath());
  return icon;
}

/// Ends the event loop, and the loops of open dialogs, when a stop signal arrives. A dialog then
/// counts as cancelled.
class StopSignalNotifier {
 public:
  StopSignalNotifier() {
    const int stop = stopSignalDescriptor();
    if (stop < 0) return;
    notifier_.emplace(stop, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
  }

 private:
  std::optional<QSocketNotifier> notifier_;
};

}  // namespace

QtToolkit::QtApplication::QtApplication(const DisplayErrorGuard& /*guard*/)
    : QApplication(argumentCount, programArguments) {
  // QApplication has set the locale of the C library; numbers need "." as decimal separator.
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
  const auto found = std::ranges::find_if(
      windows_, [&](const auto& shown) { return shown->mirrored() == &window; });
  if (found == windows_.end()) return;
  const bool isInsideHandler = delivery_.isHeld();
  // Do not deliver focus changes caused by destroying the widgets.
  const ScopedFlag hold = delivery_.hold();
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
    if (shown->mirrored() == &window) shown->follow();
  }
}

void QtToolkit::menusChanged() {
  for (const auto& window : windows_) window->followMenus();
}

bool QtToolkit::hasOwnMenuBar() const {
  return QGuiApplication::platformName() == "cocoa";
}

Ref<FolderItem> QtToolkit::getSaveFolderItem(const Window* parent, const String& filter,
                                             const String& defaultName) {
  return askWhereToSave(widgetOf(parent), filter, defaultName);
}

void QtToolkit::messageBox(const Window* parent, const String& text) {
  showMessage(widgetOf(parent), toQt(text));
}

void QtToolkit::run() {
  {
    const ScopedFlag running(isRunning_);
    const StopSignalNotifier notifier;
    if (!hasQuit_ && !delivery_.hasFailed()) QApplication::exec();
  }
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
    return complain(programName, sentence.view());
  reportFault(sentence);
}

void QtToolkit::reportOutOfMemory() noexcept {
  complainOfMemory(programName);
}

void QtToolkit::reportActivation(bool isActive) {
  const Ref<Application> application = registeredApplication();
  if (application) delivery_.deliver([&] { application->setActive(isActive); });
}

void QtToolkit::reportFault(const String& sentence) {
  complain(programName, sentence.view());
  // The box takes the focus from a field. The field's "LostFocus" handler must not run: it may
  // have failed before.
  const ScopedFlag hold = delivery_.hold();
  std::optional<StopSignalNotifier> notifier;
  if (!isRunning_) notifier.emplace();  // a running loop has its own
  showFailure(widgetOf(frontWindow().get()), toQt(sentence));
}

QWidget* QtToolkit::widgetOf(const Window* window) const {
  const auto found = std::ranges::find_if(
      windows_, [&](const auto& shown) { return shown->mirrored() == window; });
  return found == windows_.end() ? nullptr : found->get();
}

}  // namespace veldrin
