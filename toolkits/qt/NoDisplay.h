#pragma once

#include <QString>
#include <QtGlobal>
#include <vector>

namespace veldrin {

/// What Qt does where it finds no display is to abort. While one of these lives, one sentence on
/// the error stream and exit status 1 stand in for that. There can be one at a time.
class NoDisplay {
 public:
  NoDisplay();
  NoDisplay(const NoDisplay&) = delete;
  NoDisplay& operator=(const NoDisplay&) = delete;
  /// There is a display: lets Qt say what was kept back until that was known.
  ~NoDisplay();

 private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& text);

  QtMessageHandler before_;
  std::vector<QString> keptBack_;
};

}  // namespace veldrin
