#include "shell/CheckBox.h"

namespace veldrin {
namespace {

CheckBox::CheckedStates stateOf(bool ticked) {
  return ticked ? CheckBox::CheckedStates::Checked : CheckBox::CheckedStates::Unchecked;
}

}  // namespace

void CheckBox::fillTable(ClassTable<CheckBox>& table) {
  table.event("Action"_s);
  table.property<&CheckBox::Caption>("Caption"_s);
  table.property<CheckedStates, &CheckBox::State, &CheckBox::State>("State"_s);
  table.property<bool, &CheckBox::Value, &CheckBox::Value>("Value"_s);
  fillTextStyle(table);
  table.property<&CheckBox::DataSource>("DataSource"_s);
  table.property<&CheckBox::DataField>("DataField"_s);
}

void CheckBox::Value(bool ticked) {
  State(stateOf(ticked));
}

void CheckBox::State(CheckedStates state) {
  state_ = state;
  changed();
}

void CheckBox::userTicked(bool ticked) {
  state_ = stateOf(ticked);
  raiseEvent("Action"_s);
}

}  // namespace veldrin
