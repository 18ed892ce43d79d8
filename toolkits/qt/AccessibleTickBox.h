#pragma once

#include <QAccessibleInterface>

namespace veldrin {

/// Creates the accessible object of a `QtTickBox`; returns nil for other objects. It reports the
/// rectangle that reacts to clicks, the whole control; Qt's own reports only mark and text.
QAccessibleInterface* makeAccessibleTickBox(const QString& className, QObject* object);

}  // namespace veldrin
