#pragma once

#include "shell/RectControl.h"
#include "shell/TextStyle.h"

namespace veldrin {

/// A button that a person presses; it raises "Action".
class PushButton final : public Described<PushButton, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "PushButton";
  static void fillTable(ClassTable<PushButton>& table);

  /// A person has pressed the button.
  void userPressed() { raiseEvent("Action"_s); }

  String Caption;
  bool Default = false;  ///< the Return key presses it
  bool Cancel = false;   ///< the Escape key presses it

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }
};

}  // namespace veldrin
