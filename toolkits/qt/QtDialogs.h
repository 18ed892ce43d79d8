#pragma once

#include <QWidget>

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Shows the save dialog; returns nil if the user cancels. The dialog asks before replacing a file.
/// It adds no extension to the name. `filter`: names of registered file types, separated by ";".
Ref<FolderItem> askWhereToSave(QWidget* parent, const String& filter, const String& defaultName);

/// Shows a plain text in a message box and waits until the user closes it.
void showMessage(QWidget* parent, const QString& text);

/// Shows that Veldrin has to end, and why; waits until the user closes the box.
void showFailure(QWidget* parent, const QString& reason);

}  // namespace veldrin
