#include "shell/window/StaticText.h"

namespace veldrin {

void StaticText::fillTable(ClassTable<StaticText>& table) {
  table.property<&StaticText::Text>("Text"_s);
  table.property<&StaticText::TextAlign>("TextAlign"_s);
  table.property<&StaticText::TextColor>("TextColor"_s);
  table.property<&StaticText::MultiLine>("MultiLine"_s);
  fillTextStyle(table);
  table.property<&StaticText::DataSource>("DataSource"_s);
  table.property<&StaticText::DataField>("DataField"_s);
}

}  // namespace veldrin
