#include "shell/window/CheckBox.h"

namespace veldrin {

void CheckBox::fillTable(ClassTable<CheckBox>& table) {
  table.event(Events::Action);
  table.property<&CheckBox::Caption>("Caption"_s);
  table.property<&CheckBox::State>("State"_s);
  table.property<bool, &CheckBox::Value, &CheckBox::Value>("Value"_s);
  fillTextStyle(table);
  table.property<&CheckBox::DataSource>("DataSource"_s);
  table.property<&CheckBox::DataField>("DataField"_s);
}

void CheckBox::userTicked(bool ticked) {
  if (!Enabled()) return;
  State.setShown(stateOf(ticked));
  raiseEvent(Events::Action);
}

}  // namespace veldrin
