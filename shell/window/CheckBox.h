#pragma once

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// The states of a check box; `CheckBox.CheckedStates` in the class tables.
enum class CheckedStates : std::int32_t { Unchecked, Checked, Indeterminate };

template <>
inline constexpr FixedString EnumFullName<CheckedStates> = "CheckBox.CheckedStates";

/// A check box. It raises "Action" when the user ticks or unticks it.
class CheckBox final : public Described<CheckBox, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "CheckBox";
  static void fillTable(ClassTable<CheckBox>& table);

  CheckBox() : TextStyle(static_cast<Control&>(*this)) {}

  struct Events : RectControl::Events {
    static constexpr Event<void()> Action{"Action"_s};
  };

  using CheckedStates = veldrin::CheckedStates;

  /// Whether `State` is `Checked`.
  [[nodiscard]] bool Value() const { return State() == CheckedStates::Checked; }
  void Value(bool ticked) { State(stateOf(ticked)); }
  Live<CheckedStates> State{*this};

  /// The user has ticked or unticked the box. Ignored if the box is disabled.
  void userTicked(bool ticked);

  Live<String> Caption{*this};
  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }

  static CheckedStates stateOf(bool ticked) {
    return ticked ? CheckedStates::Checked : CheckedStates::Unchecked;
  }
};

}  // namespace veldrin
