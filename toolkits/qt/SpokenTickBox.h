#pragma once

#include <QAccessibleInterface>

namespace veldrin {

/// Makes what a screen reader meets of a tick box; nil for any other object. Qt's own gives the
/// place of the mark and the text alone, which goes by the font: this one gives that of the
/// control, all of which can be pressed.
QAccessibleInterface* spokenTickBox(const QString& kind, QObject* object);

}  // namespace veldrin
