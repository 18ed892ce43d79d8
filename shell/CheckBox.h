#pragma once

#include "shell/RectControl.h"
#include "shell/TextStyle.h"

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

  using CheckedStates = veldrin::CheckedStates;

  /// Whether the box is ticked; the same state as `State`.
  [[nodiscard]] bool Value() const { return state_ == CheckedStates::Checked; }
  void Value(bool ticked);
  [[nodiscard]] CheckedStates State() const { return state_; }
  void State(CheckedStates state);

  /// A person has ticked the box or taken the tick out.
  void userTicked(bool ticked);

  String Caption;
  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }

  CheckedStates state_ = CheckedStates::Unchecked;
};

}  // namespace veldrin
