#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

class Window;

/// The interface of non-controls in a window. Its operations return the parent and the window. It
/// exists because the framework's conventions ask for it; no class implements it.
struct _PaneChild : DescribedInterface<_PaneChild> {
  static constexpr FixedString FullName = "_PaneChild";
  using Operations = std::tuple<MethodShape<Ref<Object>>, MethodShape<Ref<Window>>>;
};

}  // namespace veldrin
