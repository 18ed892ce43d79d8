#pragma once

#include <QString>
#include <QtGlobal>
#include <vector>

namespace veldrin {

/// Without a display Qt aborts. During the lifetime of this guard, Veldrin writes one sentence to
/// standard error instead and exits with status 1. Only one guard may exist at a time.
class DisplayErrorGuard {
 public:
  DisplayErrorGuard();
  DisplayErrorGuard(const DisplayErrorGuard&) = delete;
  DisplayErrorGuard& operator=(const DisplayErrorGuard&) = delete;
  /// Prints the messages held back, because Qt has found a display.
  ~DisplayErrorGuard();

 private:
  static void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);

  QtMessageHandler previousHandler_;
  std::vector<QString> heldBack_;
};

}  // namespace veldrin
