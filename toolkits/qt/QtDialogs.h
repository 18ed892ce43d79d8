#pragma once

#include <QWidget>

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Asks where to save: the place, or nil if the person cancels. An existing file is confirmed
/// there, and nothing is added to the name. `filter` names registered file types, joined by ";".
Ref<FolderItem> askWhereToSave(QWidget* parent, const String& filter, const String& defaultName);

/// Says a text, which is shown as it stands, and waits until it has been dismissed.
void sayInBox(QWidget* parent, const QString& text);

/// Says that the program cannot go on, and why.
void sayFailure(QWidget* parent, const QString& reason);

}  // namespace veldrin
