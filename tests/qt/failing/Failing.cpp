// veldrin-failing CAUSE END: opens the window and presses a button whose handler fails. CAUSE is
// the failure: "nil", "disk" or "fault". END closes its message box: "click" or "signal".

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <map>
#include <string>

#include "apps/ProgramMain.h"
#include "apps/SpokenNames.h"
#include "apps/VeldrinParts.h"
#include "daystatus/Veldrin.h"
#include "shell/host/SystemHost.h"
#include "toolkits/qt/QtToolkit.h"

namespace veldrin::test {

std::string end;

[[gnu::noinline]] void failByNil(Object* /*button*/) {
  Raise<NilObjectException>();
}

const std::map<std::string, EventHandler> Handlers{
    {"nil", failByNil},
    {"disk", [](Object*) { Raise<IOException>(ENOSPC); }},
    {"fault", [](Object*) { throw FatalFault("The form is damaged."); }}};

void pressTheButton() {
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const button = window->findChild<QAbstractButton*>("BackOneDay")) button->click();
  }
}

void endTheBox() {
  auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (box == nullptr || !box->isVisible()) return;
  if (end == "click") return box->accept();
  if (end == "signal") std::raise(SIGTERM);
  end.clear();  // a second signal would end the process at once
}

int run(const std::string& cause) {
  SystemHost host;
  QtToolkit toolkit({});
  ApplicationParts parts = VeldrinParts;
  static const EventHandler fails = Handlers.at(cause);
  parts.makeView = [] {
    VeldrinParts.makeView();
    _InstallInstanceEventHandler(implicit::Veldrin()->BackOneDay(), "Action"_s, fails);
    QTimer::singleShot(0, pressTheButton);
  };
  QTimer watch;
  watch.callOnTimeout(endTheBox);
  watch.start(10);
  QTimer::singleShot(20'000, [] { std::_Exit(99); });
  return runProcess(host, toolkit, parts);
}

}  // namespace veldrin::test

int main(int /*count*/, char** arguments) {
  veldrin::test::end = arguments[2];
  return veldrin::runProgram("veldrin-failing", [&] { return veldrin::test::run(arguments[1]); });
}
