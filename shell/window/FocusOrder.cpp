#include "shell/window/FocusOrder.h"

#include <algorithm>

#include "shell/window/Window.h"

namespace veldrin {
namespace {

/// Moves the controls inside a parent from `left` to `order`, so that each is visited once.
void appendInside(const String& parent, std::vector<Ref<RectControl>>& left,
                  std::vector<Ref<RectControl>>& order) {
  const auto inside = std::stable_partition(
      left.begin(), left.end(),
      [&](const Ref<RectControl>& control) { return !(control->InitialParent() == parent); });
  std::vector<Ref<RectControl>> children(inside, left.end());
  left.erase(inside, left.end());
  std::ranges::stable_sort(children, {}, [](const auto& control) { return control->TabIndex(); });
  for (const Ref<RectControl>& child : children) {
    if (child->takesFocus()) order.push_back(child);
    if (!child->Name.isEmpty()) appendInside(child->Name, left, order);
  }
}

}  // namespace

std::vector<Ref<RectControl>> focusOrder(const Window& window) {
  std::vector<Ref<RectControl>> left;
  for (const Ref<Control>& control : window.controls()) {
    if (RuntimeObjectIsa(control.get(), RectControl::__Lookup())) {
      left.push_back(CheckCast<RectControl>(control));
    }
  }
  std::vector<Ref<RectControl>> order;
  appendInside(String(), left, order);
  return order;
}

}  // namespace veldrin
