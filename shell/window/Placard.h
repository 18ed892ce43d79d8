#pragma once

#include "shell/window/RectControl.h"

namespace veldrin {

/// A framed panel with no text, which groups the controls that name it as their parent.
class Placard final : public Described<Placard, RectControl> {
 public:
  static constexpr FixedString FullName = "Placard";
  static void fillTable(ClassTable<Placard>& table);

  Live<bool> Value{*this};  ///< drawn pressed
};

}  // namespace veldrin
