#pragma once

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// A button. A press by the user raises "Action".
class PushButton final : public Described<PushButton, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "PushButton";
  static void fillTable(ClassTable<PushButton>& table);

  PushButton() : TextStyle(static_cast<Control&>(*this)) {}

  struct Events : RectControl::Events {
    static constexpr Event<void()> Action{"Action"_s};
  };

  /// The user has pressed the button.
  void userPressed() { raiseForUser(Events::Action); }

  Live<String> Caption{*this};
  Live<bool> Default{*this};  ///< whether Return should press it; no toolkit does that
  Live<bool> Cancel{*this};   ///< whether Escape should press it; no toolkit does that

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }
};

}  // namespace veldrin
