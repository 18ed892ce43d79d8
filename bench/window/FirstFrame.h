// Shared by BareWindow.cpp and VeldrinWindow.cpp.
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

/// Waits until a frame with an awaited widget has been sent to the display. Then prints the
/// resident memory in KiB and exits at once, without destructors, because shutdown is not measured.
class FirstFrame final : public QObject {
 public:
  using Awaited = bool (*)(const QWidget& painted);

  explicit FirstFrame(Awaited isAwaited) : isAwaited_(isAwaited) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const painted = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && painted != nullptr && isAwaited_(*painted)) {
      // Qt sends the frame after its last paint event and before the next queued event.
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
    const bool isPrinted = status && std::fflush(stdout) == 0;
    ::_exit(isPrinted ? EXIT_SUCCESS : EXIT_FAILURE);
  }

  Awaited isAwaited_;
};
