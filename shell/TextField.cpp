#include "shell/TextField.h"

#include <utility>

namespace veldrin {

void TextField::fillTable(ClassTable<TextField>& table) {
  table.property<String, &TextField::Text, &TextField::Text>("Text"_s);
  table.property<&TextField::Border>("Border"_s);
  table.property<&TextField::Password>("Password"_s);
  table.property<&TextField::UseFocusRing>("UseFocusRing"_s);
  table.property<&TextField::TextColor>("TextColor"_s);
  table.property<&TextField::BackColor>("BackColor"_s);
  table.property<&TextField::Format>("Format"_s);
  table.property<&TextField::CueText>("CueText"_s);
  table.property<&TextField::Mask>("Mask"_s);
  table.property<&TextField::ReadOnly>("ReadOnly"_s);
  table.property<&TextField::LimitText>("LimitText"_s);
  table.property<&TextField::AcceptTabs>("AcceptTabs"_s);
  table.property<&TextField::Alignment>("Alignment"_s);
  fillTextStyle(table);
  table.property<&TextField::DataSource>("DataSource"_s);
  table.property<&TextField::DataField>("DataField"_s);
}

void TextField::Text(String text) {
  text_ = std::move(text);
  changed();
}

void TextField::userTyped(String text) {
  text_ = std::move(text);
}

}  // namespace veldrin
