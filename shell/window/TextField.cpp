#include "shell/window/TextField.h"

#include <utility>

namespace veldrin {

void TextField::fillTable(ClassTable<TextField>& table) {
  table.property<&TextField::Text>("Text"_s);
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

void TextField::userTyped(String text) {
  if (Enabled() && !ReadOnly()) Text.keep(std::move(text));
}

}  // namespace veldrin
