#pragma once

#include "shell/RectControl.h"
#include "shell/TextStyle.h"
#include "shell/objects/Color.h"

namespace veldrin {

/// A line of text that a person can edit. It raises "LostFocus" when the focus leaves it, and
/// nothing when its text changes.
class TextField final : public Described<TextField, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "TextField";
  static void fillTable(ClassTable<TextField>& table);

  /// The present text, with what the person has typed.
  [[nodiscard]] String Text() const { return text_; }
  void Text(String text);

  /// A person has changed the text to this.
  void userTyped(String text);

  bool Border = true;
  bool Password = false;
  bool UseFocusRing = true;
  Color TextColor = Black;
  Color BackColor = White;
  String Format;
  String CueText;
  String Mask;
  bool ReadOnly = false;
  std::int32_t LimitText = 0;  ///< characters; 0 for no limit
  bool AcceptTabs = false;
  std::int32_t Alignment = 0;  ///< 0 the default, left
  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }

  String text_;
};

}  // namespace veldrin
