#pragma once

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// What a check box can show; `CheckBox.CheckedStates` in the tables.
enum class CheckedStates : std::int32_t { Unchecked, Checked, Indeterminate };

template <>
inline constexpr FixedString EnumFullName<CheckedStates> = "CheckBox.CheckedStates";

/// A box that is ticked or not; it raises "Action" when a person changes that.
class CheckBox final : public Described<CheckBox, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "CheckBox";
  static void fillTable(ClassTable<CheckBox>& table);

  CheckBox() : TextStyle(static_cast<Control&>(*this)) {}

  struct Events : RectControl::Events {
    static constexpr Event<void()> Action{"Action"_s};
  };

  using CheckedStates = veldrin::CheckedStates;

  /// Whether the box is ticked; the same state as `State`.
  [[nodiscard]] bool Value() const { return State() == CheckedStates::Checked; }
  void Value(bool ticked) { State(stateOf(ticked)); }
  Live<CheckedStates> State{*this};

  /// A person has ticked the box or taken the tick out, which nobody can where it is disabled.
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
