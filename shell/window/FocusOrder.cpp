#include "shell/window/FocusOrder.h"

#include <algorithm>

#include "shell/window/Window.h"

namespace veldrin {
namespace {

/// Removes the controls inside a parent from `remaining` and appends the focusable ones to `order`.
/// Each is visited once, even if names repeat.
void appendInside(const String& parent, std::vector<Ref<RectControl>>& remaining,
                  std::vector<Ref<RectControl>>& order) {
  const auto firstInside = std::stable_partition(
      remaining.begin(), remaining.end(),
      [&](const Ref<RectControl>& control) { return !(control->InitialParent() == parent); });
  std::vector<Ref<RectControl>> children(firstInside, remaining.end());
  remaining.erase(firstInside, remaining.end());
  std::ranges::stable_sort(children, {}, [](const auto& control) { return control->TabIndex(); });
  for (const Ref<RectControl>& child : children) {
    if (child->takesFocus()) order.push_back(child);
    if (!child->Name.isEmpty()) appendInside(child->Name, remaining, order);
  }
}

}  // namespace

std::vector<Ref<RectControl>> focusOrder(const Window& window) {
  std::vector<Ref<RectControl>> remaining;
  for (const Ref<Control>& control : window.controls()) {
    if (RuntimeObjectIsa(control.get(), RectControl::__Lookup())) {
      remaining.push_back(CheckCast<RectControl>(control));
    }
  }
  std::vector<Ref<RectControl>> order;
  appendInside(String(), remaining, order);
  return order;
}

}  // namespace veldrin
