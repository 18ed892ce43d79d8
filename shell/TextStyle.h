#pragma once

#include <cstdint>

#include "shell/objects/ClassTable.h"
#include "shell/objects/String.h"

namespace veldrin {

/// The units of a size of text.
enum class FontUnits : std::uint8_t { Default, Pixel, Point, Inch, Millimeter };

template <>
inline constexpr FixedString EnumFullName<FontUnits> = "FontUnits";

/// The settings of type that every control with a text has.
struct TextStyle {
  String TextFont;
  float TextSize = 0.0F;  ///< in `TextUnit`; 0 for the font's default size
  FontUnits TextUnit = FontUnits::Default;
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
};

/// The rows of the settings of type, for the table of a control that has them.
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
