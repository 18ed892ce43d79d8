#include "shell/Dialogs.h"

#include "shell/Runtime.h"

namespace veldrin {

Ref<FolderItem> GetSaveFolderItem(const String& filter, const String& defaultName) {
  return Runtime::current().toolkit.getSaveFolderItem(filter, defaultName);
}

void MsgBox(const String& text) {
  Runtime::current().toolkit.messageBox(text);
}

}  // namespace veldrin
