#pragma once

#include "shell/window/RectControl.h"

namespace veldrin {

/// A framed panel. It groups the controls whose `InitialParent` is its name.
class Placard final : public Described<Placard, RectControl> {
 public:
  static constexpr FixedString FullName = "Placard";
  static void fillTable(ClassTable<Placard>& table);

  Live<bool> Value{*this};  ///< whether pressed; no toolkit shows it
};

}  // namespace veldrin
