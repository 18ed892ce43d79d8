#pragma once

#include <cstdint>

#include "shell/objects/ClassTable.h"
#include "shell/window/Control.h"

namespace veldrin {

/// The units of a text size.
enum class FontUnits : std::uint8_t { Default, Pixel, Point, Inch, Millimeter };

template <>
inline constexpr FixedString EnumFullName<FontUnits> = "FontUnits";

/// The font settings of a control that shows text.
struct TextStyle {
  explicit TextStyle(Control& control)
      : TextFont(control),
        TextSize(control),
        TextUnit(control),
        Bold(control),
        Italic(control),
        Underline(control) {}

  Control::Live<String> TextFont;
  Control::Live<float> TextSize;  ///< in `TextUnit`; 0 for the font's default size
  Control::Live<FontUnits> TextUnit;
  Control::Live<bool> Bold;
  Control::Live<bool> Italic;
  Control::Live<bool> Underline;
};

/// Adds the font settings to the class table of a control.
template <class Self>
void fillTextStyle(ClassTable<Self>& table) {
  table.template property<&Self::TextFont>("TextFont"_s);
  table.template property<&Self::TextSize>("TextSize"_s);
  table.template property<&Self::TextUnit>("TextUnit"_s);
  table.template property<&Self::Bold>("Bold"_s);
  table.template property<&Self::Italic>("Italic"_s);
  table.template property<&Self::Underline>("Underline"_s);
}

}  // namespace veldrin
