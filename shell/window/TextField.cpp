#include "shell/window/TextField.h"

#include <cstddef>
#include <string_view>

#include "shell/host/PlainText.h"

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
  table.property<std::int32_t, &TextField::LimitText, &TextField::LimitText>("LimitText"_s);
  table.property<&TextField::AcceptTabs>("AcceptTabs"_s);
  table.property<&TextField::Alignment>("Alignment"_s);
  fillTextStyle(table);
  table.property<&TextField::DataSource>("DataSource"_s);
  table.property<&TextField::DataField>("DataField"_s);
}

void TextField::LimitText(std::int32_t limit) {
  limitText_ = limit;
  Text(Text());
}

void TextField::userTyped(const String& text) {
  if (!Enabled() || ReadOnly()) return;
  text_.setShown(text);
  Text(text);
}

String TextField::limited(String text) const {
  if (limitText_ <= 0) return text;
  const std::string_view bytes = text.view();
  std::int32_t characters = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (!continuesCharacter(bytes[at]) && ++characters > limitText_)
      return String(bytes.substr(0, at));
  }
  return text;
}

}  // namespace veldrin
