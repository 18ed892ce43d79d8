#pragma once

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Shows the modal save dialog. Returns the chosen place, or nil if the user cancels. `filter`
/// names registered file types, joined by ";".
Ref<FolderItem> GetSaveFolderItem(const String& filter, const String& defaultName);

/// Shows a text in a message box. Returns when the user dismisses it.
void MsgBox(const String& text);

}  // namespace veldrin
