#include "toolkits/qt/NoDisplay.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace veldrin {
namespace {

/// Qt calls a bare function, which finds its object here.
NoDisplay* listening = nullptr;

void write(const QString& line) {
  static_cast<void>(std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData()));
}

/// Why each platform that was tried has no display, which the one sentence says for all of them.
/// A platform whose plugin is not even installed is another matter.
bool isOfAPlatform(QtMsgType type, std::string_view category) {
  return type == QtInfoMsg || (category.starts_with("qt.qpa.") && category != "qt.qpa.plugin");
}

}  // namespace

NoDisplay::NoDisplay() : before_(qInstallMessageHandler(&hear)) {
  listening = this;
}

NoDisplay::~NoDisplay() {
  qInstallMessageHandler(before_);
  listening = nullptr;
  for (const QString& line : keptBack_) write(line);
}

void NoDisplay::hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) {
    write(
        "veldrin: there is no display to show a window on; "
        "veldrin-calendar writes a calendar without one");
    // The application object is half made: nothing may be taken down.
    std::_Exit(EXIT_FAILURE);
  }
  if (isOfAPlatform(type, context.category == nullptr ? "" : context.category)) {
    listening->keptBack_.push_back(qFormatLogMessage(type, context, text));
  } else {
    listening->before_(type, context, text);
  }
}

}  // namespace veldrin
