// veldrin-year-press FILE
//
// Repeatedly presses the year button for 2020 and answers the save dialog with FILE. Prints the
// median and the tenth percentile of the time from the answer to the end of the handler, in ms.

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "apps/SpokenNames.h"
#include "apps/VeldrinParts.h"
#include "shell/host/SystemHost.h"
#include "toolkits/qt/QtToolkit.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr const char* Year = "2020";
constexpr int Presses = 100;

Clock::time_point answerTime;

/// Answers the save dialog. Stops its folder watch first: ending the watch takes about 15 ms in the
/// kernel, which would be measured with the handler.
void answer(const QString& path) {
  auto& dialog = dynamic_cast<QFileDialog&>(*QApplication::activeModalWidget());
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.findChild<QFileSystemModel*>()->setOption(QFileSystemModel::DontWatchForChanges);
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
  QObject::connect(&dialog, &QDialog::finished, &dialog, [] { answerTime = Clock::now(); });
  static_cast<QDialog&>(dialog).accept();
}

/// Presses the button. Returns the time from the answer to the end of the handler.
Milliseconds press(QPushButton& button, const QString& path) {
  QTimer::singleShot(0, &button, [&path] { answer(path); });
  button.click();
  return Clock::now() - answerTime;
}

template <class Widget>
Widget& widget(const char* name) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const found = window->findChild<Widget*>(name)) return *found;
  }
  std::abort();
}

void measure(const QString& path) {
  widget<QComboBox>("WhichYear").setCurrentText(Year);
  auto& button = widget<QPushButton>("GenerateButton");
  std::vector<Milliseconds> times;
  while (times.size() < Presses) times.push_back(press(button, path));
  std::ranges::sort(times);
  std::printf("%.2f %.2f\n", times[Presses / 2].count(), times[Presses / 10].count());
  QCoreApplication::exit();
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: veldrin-year-press FILE\n", stderr);
    return 2;
  }
  const QString path = QString::fromLocal8Bit(arguments[1]);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  veldrin::SystemHost host;
  const auto names = veldrin::spokenNames();
  veldrin::QtToolkit toolkit(names);
  QTimer::singleShot(0, qApp, [&path] { measure(path); });
  return veldrin::runProcess(host, toolkit, veldrin::VeldrinParts);
}
