#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

class Window;

/// The interface of what lies in a window without being a control. Its second operation gives the
/// window, a `Ref<Window> (*)(Object*)`.
struct _PaneChild : DescribedInterface<_PaneChild> {
  static constexpr FixedString FullName = "_PaneChild";
  static constexpr std::size_t OperationCount = 2;
};

}  // namespace veldrin
