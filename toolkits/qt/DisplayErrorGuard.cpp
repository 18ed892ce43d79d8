#include "toolkits/qt/DisplayErrorGuard.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace veldrin {
namespace {

/// For `handleMessage`: Qt passes it no user data.
DisplayErrorGuard* current = nullptr;

void writeLine(const QString& line) {
  static_cast<void>(std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData()));
}

/// Whether the message may explain a missing display; such messages are held back. Warnings about
/// missing plugins (qt.qpa.plugin) are not.
bool isHeldBack(QtMsgType type, std::string_view category) {
  return type == QtInfoMsg || (category.starts_with("qt.qpa.") && category != "qt.qpa.plugin");
}

}  // namespace

DisplayErrorGuard::DisplayErrorGuard() : previousHandler_(qInstallMessageHandler(&handleMessage)) {
  current = this;
}

DisplayErrorGuard::~DisplayErrorGuard() {
  qInstallMessageHandler(previousHandler_);
  current = nullptr;
  for (const QString& line : heldBack_) writeLine(line);
}

void DisplayErrorGuard::handleMessage(QtMsgType type, const QMessageLogContext& context,
                                      const QString& text) {
  if (type == QtFatalMsg) {
    writeLine(
        "veldrin: there is no display to show a window on; "
        "veldrin-calendar writes a calendar without one");
    // Runs no destructors: the application object is only partly constructed.
    std::_Exit(EXIT_FAILURE);
  }
  if (isHeldBack(type, context.category == nullptr ? "" : context.category)) {
    current->heldBack_.push_back(qFormatLogMessage(type, context, text));
  } else {
    current->previousHandler_(type, context, text);
  }
}

}  // namespace veldrin
