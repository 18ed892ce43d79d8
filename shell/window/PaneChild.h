#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

class Window;

/// The interface of what lies in a window without being a control. Its operations give what it lies
/// in directly, and the window.
struct _PaneChild : DescribedInterface<_PaneChild> {
  static constexpr FixedString FullName = "_PaneChild";
  using Operations = std::tuple<MethodShape<Ref<Object>>, MethodShape<Ref<Window>>>;
};

}  // namespace veldrin
