#pragma once

#include "shell/objects/Color.h"
#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// A text that the user cannot change. A carriage return starts a new line.
class StaticText final : public Described<StaticText, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "StaticText";
  static void fillTable(ClassTable<StaticText>& table);

  StaticText() : TextStyle(static_cast<Control&>(*this)) {}

  Live<String> Text{*this};
  Live<std::int32_t> TextAlign{*this};  ///< 0 left, 1 centre, 2 right
  Live<Color> TextColor{*this, Black};
  Live<bool> MultiLine{*this};
  String DataSource;
  String DataField;
};

}  // namespace veldrin
