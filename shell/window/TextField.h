#pragma once

#include "shell/objects/Color.h"
#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// An editable line of text. It raises "LostFocus" when the focus leaves it, but no event when its
/// text changes.
class TextField final : public Described<TextField, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "TextField";
  static void fillTable(ClassTable<TextField>& table);

  TextField() : TextStyle(static_cast<Control&>(*this)) {}

  Live<String> Text{*this};

  /// The user has changed the text. Ignored if the field is disabled or read-only.
  void userTyped(String text);

  Live<bool> Border{*this, true};
  Live<bool> Password{*this};
  Live<bool> UseFocusRing{*this, true};
  Live<Color> TextColor{*this, Black};
  Live<Color> BackColor{*this, White};
  Live<String> Format{*this};
  Live<String> CueText{*this};
  Live<String> Mask{*this};
  Live<bool> ReadOnly{*this};
  Live<std::int32_t> LimitText{*this};  ///< in characters; 0 for no limit
  Live<bool> AcceptTabs{*this};
  Live<std::int32_t> Alignment{*this};  ///< 0 the default, which is left; 1 left, 2 centre, 3 right
  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }
};

}  // namespace veldrin
