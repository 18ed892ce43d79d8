// The moment that both programs are measured by.
#pragma once

#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

/// Ends the process once a frame in which an awaited widget has been painted is with the display,
/// and prints the KiB that are resident by then. Nothing is taken down, since that is not measured.
class FirstFrame final : public QObject {
 public:
  using Awaited = bool (*)(const QWidget& painted);

  explicit FirstFrame(Awaited awaited) : awaited_(awaited) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const painted = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && painted != nullptr && awaited_(*painted)) {
      // The frame goes to the display behind its last paint event, ahead of the next event.
      QMetaObject::invokeMethod(this, &FirstFrame::end, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  static void end() {
    std::ifstream status("/proc/self/status");
    std::string key;
    long resident = 0;
    while (status >> key && key != "VmRSS:") status.ignore(1000, '\n');
    status >> resident;
    std::printf("%ld\n", resident);
    const bool printed = status && std::fflush(stdout) == 0;
    ::_exit(printed ? EXIT_SUCCESS : EXIT_FAILURE);
  }

  Awaited awaited_;
};
