#include "shell/window/ApplicationSession.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "shell/objects/NewArray.h"
#include "shell/objects/ScopedFlag.h"
#include "shell/objects/Stack.h"
#include "shell/window/Application.h"
#include "shell/window/Toolkit.h"

namespace veldrin {
namespace {

/// Sets `Enabled` to `AutoEnable` in all descendants except separators, and collects them.
void resetItems(const MenuItem& item, std::vector<Ref<MenuItem>>& items) {
  RuntimeStackCheck();
  for (const Ref<MenuItem>& child : item.children()) {
    if (child->isSeparator()) continue;
    child->Enabled(child->AutoEnable);
    items.push_back(child);
    resetItems(*child, items);
  }
}

/// Recomputes which items of the bar are enabled.
void refreshItems(const Ref<Window>& window, const MenuBar& bar) {
  std::vector<Ref<MenuItem>> items;
  resetItems(bar, items);
  const Ref<Array<Ref<MenuItem>>> all = newArray(std::move(items));
  if (window) window->_EnableMenuItems(all);
  if (const Ref<Application> application = registeredApplication()) {
    application->_EnableMenuItems(all);
  }
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): `all` releases the array here.
}

bool isShown(const MenuItem& item) {
  const auto has = [&](const auto& owner) {
    const Ref<MenuBar> bar = owner->MenuBar();
    return bar && bar->contains(item);
  };
  const Ref<Application> application = registeredApplication();
  return (application && has(application)) ||
         std::ranges::any_of(_WindowSupport.Windows, [&](const Ref<Window>& window) {
           return window->isOpen() && has(window);
         });
}

}  // namespace

Ref<MenuBar> menuBarOf(const Window* window) {
  const Ref<MenuBar> own = window == nullptr ? nullptr : window->MenuBar();
  const Ref<Application> application = registeredApplication();
  return own || !application ? own : application->MenuBar();
}

void ApplicationSession::menuItemChanged(const MenuItem& item) {
  if (!isEnabling_ && isShown(item)) InForce<Toolkit>::get().menusChanged();
}

bool ApplicationSession::handleMenuCommand(const Ref<MenuItem>& item) {
  const Ref<Window> window = frontWindow();
  if (window && window->_HandleMenuCommand(item)) return true;
  const Ref<Application> application = registeredApplication();
  if (application && application->_HandleMenuCommand(item)) return true;
  return window && window->callMenuHandler(item->Name);
}

void ApplicationSession::enableMenuItems() {
  const Ref<Window> window = frontWindow();
  const Ref<MenuBar> bar = menuBarOf(window.get());
  if (!bar) return;
  {
    const ScopedFlag enabling(isEnabling_);
    refreshItems(window, *bar);
  }
  InForce<Toolkit>::get().menusChanged();
}

void ApplicationSession::windowClosed() {
  if (!_WindowSupport.Windows.empty()) return;
  const Ref<Application> application = registeredApplication();
  const bool hasAutoQuit = application && application->AutoQuit;
  Toolkit& toolkit = InForce<Toolkit>::get();
  if (hasAutoQuit || !toolkit.hasOwnMenuBar()) toolkit.quit();
}

bool ApplicationSession::endApplication() {
  const Ref<Application> application = registeredApplication();
  if (application && callHandler(*application, Application::Events::CancelClose)) return false;
  auto& windows = _WindowSupport.Windows;
  while (!windows.empty()) {
    if (!Ref<Window>(windows.back())->_UnifiedClose(true)) return false;
  }
  InForce<Toolkit>::get().quit();
  return true;
}

}  // namespace veldrin
