#include "shell/StaticText.h"

#include <utility>

namespace veldrin {

void StaticText::fillTable(ClassTable<StaticText>& table) {
  table.property<String, &StaticText::Text, &StaticText::Text>("Text"_s);
  table.property<&StaticText::TextAlign>("TextAlign"_s);
  table.property<&StaticText::TextColor>("TextColor"_s);
  table.property<&StaticText::MultiLine>("MultiLine"_s);
  fillTextStyle(table);
  table.property<&StaticText::DataSource>("DataSource"_s);
  table.property<&StaticText::DataField>("DataField"_s);
}

void StaticText::Text(String text) {
  text_ = std::move(text);
  changed();
}

}  // namespace veldrin
