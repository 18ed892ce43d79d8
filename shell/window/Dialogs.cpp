#include "shell/window/Dialogs.h"

#include "shell/window/Toolkit.h"
#include "shell/window/Window.h"

namespace veldrin {
namespace {

/// Shows a dialog of the toolkit. Deactivates an active front window before and activates it after.
template <class Show>
auto inFrontOfTheWindow(Show show) {
  const Ref<Window> window = frontWindow();
  const bool givesWay = window && window->isActive();
  if (givesWay) window->userTurnedTo(false);
  auto answer = show(InForce<Toolkit>::get());
  if (givesWay && window->isOpen()) window->userTurnedTo(true);
  return answer;
}

}  // namespace

Ref<FolderItem> GetSaveFolderItem(const String& filter, const String& defaultName) {
  return inFrontOfTheWindow(
      [&](Toolkit& toolkit) { return toolkit.getSaveFolderItem(filter, defaultName); });
}

void MsgBox(const String& text) {
  inFrontOfTheWindow([&](Toolkit& toolkit) {
    toolkit.messageBox(text);
    return true;
  });
}

}  // namespace veldrin
