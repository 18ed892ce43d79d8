#include "shell/window/Dialogs.h"

#include "shell/window/Toolkit.h"
#include "shell/window/Window.h"

namespace veldrin {
namespace {

/// Shows a dialog of the toolkit above the front window. If the window is active, deactivates it
/// before the dialog and activates it afterwards.
template <class Show>
auto showDialog(Show show) {
  const Ref<Window> window = frontWindow();
  const bool wasActive = window && window->isActive();
  if (wasActive) window->setActive(false);
  // A handler of "Deactivate" may have closed the window.
  const bool isParent = window && window->isOpen();
  auto answer = show(InForce<Toolkit>::get(), isParent ? window.get() : nullptr);
  if (wasActive && window->isOpen()) window->setActive(true);
  return answer;
}

}  // namespace

Ref<FolderItem> GetSaveFolderItem(const String& filter, const String& defaultName) {
  return showDialog([&](Toolkit& toolkit, const Window* parent) {
    return toolkit.getSaveFolderItem(parent, filter, defaultName);
  });
}

void MsgBox(const String& text) {
  showDialog([&](Toolkit& toolkit, const Window* parent) {
    toolkit.messageBox(parent, text);
    return true;
  });
}

}  // namespace veldrin
