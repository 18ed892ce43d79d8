// bare-window [WORD]
//
// What any Qt program takes to show a window of Veldrin's size, empty or with a word in it: the
// yardstick of Veldrin's.

#include <QLabel>
#include <QMainWindow>

#include "bench/window/FirstFrame.h"

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  const FirstFrame frame([](const QWidget& painted) { return painted.isWindow(); });
  QMainWindow window;
  window.setFixedSize(350, 420);
  if (count > 1) window.setCentralWidget(new QLabel(QString::fromLocal8Bit(arguments[1])));
  window.show();
  return QApplication::exec();
}
