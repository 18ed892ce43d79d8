#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// An object being dragged. It exists because the framework's conventions ask for it; nothing in
/// Veldrin creates one.
class DragItem final : public Described<DragItem, Object> {
 public:
  static constexpr FixedString FullName = "DragItem";
};

}  // namespace veldrin
