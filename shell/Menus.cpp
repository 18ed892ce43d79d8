#include "shell/Menus.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "shell/Runtime.h"
#include "shell/Window.h"
#include "shell/objects/NewArray.h"
#include "shell/objects/Stack.h"

namespace veldrin {
namespace {

/// While the items are worked out, the toolkit is not told of each.
bool enabling = false;

class Enabling {
 public:
  Enabling() : before_(std::exchange(enabling, true)) {}
  Enabling(const Enabling&) = delete;
  Enabling& operator=(const Enabling&) = delete;
  ~Enabling() { enabling = before_; }

 private:
  bool before_;
};

/// The item and all below it that are no separators, each first set to what `AutoEnable` says.
void gatherItems(const MenuItem& item, std::vector<Ref<MenuItem>>& items) {
  RuntimeStackCheck();
  for (const Ref<MenuItem>& child : item.children()) {
    if (child->isSeparator()) continue;
    child->Enabled(child->AutoEnable);
    items.push_back(child);
    gatherItems(*child, items);
  }
}

void workOut(const Ref<Window>& window, const MenuBar& bar) {
  const Enabling enablingNow;
  std::vector<Ref<MenuItem>> items;
  gatherItems(bar, items);
  const Ref<Array<Ref<MenuItem>>> all = newArray(std::move(items));
  if (window) window->_EnableMenuItems(all);
  const Ref<Application> application = Runtime::current().application;
  if (application) application->_EnableMenuItems(all);
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the last count goes here, unseen.
}

bool isShown(const Runtime& runtime, const MenuItem& item) {
  const auto has = [&](const auto& owner) {
    const Ref<MenuBar> bar = owner->MenuBar();
    return bar && bar->contains(item);
  };
  return (runtime.application && has(runtime.application)) ||
         std::ranges::any_of(runtime._WindowSupport.Windows, [&](const Ref<Window>& window) {
           return window->isOpen() && has(window);
         });
}

}  // namespace

Ref<MenuBar> menuBarOf(const Window* window) {
  const Runtime& runtime = Runtime::current();
  const Ref<MenuBar> own = window == nullptr ? nullptr : window->MenuBar();
  return own || !runtime.application ? own : runtime.application->MenuBar();
}

void EnableMenuItems() {
  Runtime& runtime = Runtime::current();
  const Ref<Window> window = frontWindow();
  const Ref<MenuBar> bar = menuBarOf(window.get());
  if (!bar) return;
  workOut(window, *bar);
  runtime.toolkit.menusChanged();
}

bool offerMenuCommand(const Ref<MenuItem>& item) {
  const Ref<Window> window = frontWindow();
  if (window && window->_HandleMenuCommand(item)) return true;
  const Ref<Application> application = Runtime::current().application;
  if (application && application->_HandleMenuCommand(item)) return true;
  return window && window->callMenuHandler(item->Name);
}

void tellOfMenuItem(const MenuItem& item) {
  if (!Runtime::exists() || enabling) return;
  const Runtime& runtime = Runtime::current();
  if (isShown(runtime, item)) runtime.toolkit.menusChanged();
}

}  // namespace veldrin
