#include "toolkits/qt/DisplayErrorGuard.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace veldrin {
namespace {

/// For the message handler, a plain function without a context argument.
DisplayErrorGuard* current = nullptr;

void writeLine(const QString& line) {
  static_cast<void>(std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData()));
}

/// Whether the message says why a platform has no display. The sentence of the guard replaces
/// these. Messages about missing plugins (qt.qpa.plugin) are not held back.
bool isPlatformMessage(QtMsgType type, std::string_view category) {
  return type == QtInfoMsg || (category.starts_with("qt.qpa.") && category != "qt.qpa.plugin");
}

}  // namespace

DisplayErrorGuard::DisplayErrorGuard() : before_(qInstallMessageHandler(&handleMessage)) {
  current = this;
}

DisplayErrorGuard::~DisplayErrorGuard() {
  qInstallMessageHandler(before_);
  current = nullptr;
  for (const QString& line : heldBack_) writeLine(line);
}

void DisplayErrorGuard::handleMessage(QtMsgType type, const QMessageLogContext& context,
                                      const QString& text) {
  if (type == QtFatalMsg) {
    writeLine(
        "veldrin: there is no display to show a window on; "
        "veldrin-calendar writes a calendar without one");
    // No destructors: the application object is only partly constructed.
    std::_Exit(EXIT_FAILURE);
  }
  if (isPlatformMessage(type, context.category == nullptr ? "" : context.category)) {
    current->heldBack_.push_back(qFormatLogMessage(type, context, text));
  } else {
    current->before_(type, context, text);
  }
}

}  // namespace veldrin
