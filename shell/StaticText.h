#pragma once

#include "shell/RectControl.h"
#include "shell/TextStyle.h"
#include "shell/objects/Color.h"

namespace veldrin {

/// A text that a person cannot change. A carriage return in it breaks the line.
class StaticText final : public Described<StaticText, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "StaticText";
  static void fillTable(ClassTable<StaticText>& table);

  [[nodiscard]] String Text() const { return text_; }
  void Text(String text);

  std::int32_t TextAlign = 0;  ///< 0 left, 1 centre, 2 right
  Color TextColor = Black;
  bool MultiLine = false;
  String DataSource;
  String DataField;

 private:
  String text_;
};

}  // namespace veldrin
