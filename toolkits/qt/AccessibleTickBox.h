#pragma once

#include <QAccessibleInterface>

namespace veldrin {

/// Creates the accessible object of a tick box; nil for other objects. Qt reports the rectangle of
/// mark and text only; this one reports the whole control, since a click anywhere in it works.
QAccessibleInterface* makeAccessibleTickBox(const QString& kind, QObject* object);

}  // namespace veldrin
