// veldrin-bare-window [WORD]
//
// The baseline for Veldrin's window: a plain Qt window of the same size, empty or with one word.

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
