#pragma once

#include <utility>

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

  /// The text, of at most `LimitText` characters. A longer text is cut off at its end.
  [[nodiscard]] String Text() const { return text_(); }
  void Text(String text) { text_(limited(std::move(text))); }

  /// The limit of `Text` in code points; 0 for none.
  [[nodiscard]] std::int32_t LimitText() const { return limitText_; }
  void LimitText(std::int32_t limit);

  /// The user has changed the text. Ignored if the field is disabled or read-only. If the text is
  /// too long, cuts it off and tells the toolkit.
  void userTyped(const String& text);

  Live<bool> Border{*this, true};
  Live<bool> Password{*this};
  Live<bool> UseFocusRing{*this, true};
  Live<Color> TextColor{*this, Black};
  Live<Color> BackColor{*this, White};
  Live<String> Format{*this};
  Live<String> CueText{*this};
  Live<String> Mask{*this};
  Live<bool> ReadOnly{*this};
  Live<bool> AcceptTabs{*this};
  Live<std::int32_t> Alignment{*this};  ///< 0 default (left), 1 left, 2 centre, 3 right
  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }
  [[nodiscard]] String limited(String text) const;

  Live<String> text_{*this};
  std::int32_t limitText_ = 0;
};

}  // namespace veldrin
