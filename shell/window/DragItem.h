#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// What is dragged over a window or a control; no part of this system drags anything.
class DragItem final : public Described<DragItem, Object> {
 public:
  static constexpr FixedString FullName = "DragItem";
};

}  // namespace veldrin
