#include "shell/window/PushButton.h"

namespace veldrin {

void PushButton::fillTable(ClassTable<PushButton>& table) {
  table.event(Events::Action);
  table.property<&PushButton::Caption>("Caption"_s);
  table.property<&PushButton::Default>("Default"_s);
  table.property<&PushButton::Cancel>("Cancel"_s);
  fillTextStyle(table);
}

}  // namespace veldrin
