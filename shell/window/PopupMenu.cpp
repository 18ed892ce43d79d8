#include "shell/window/PopupMenu.h"

#include <string_view>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {

void PopupMenu::fillTable(ClassTable<PopupMenu>& table) {
  table.event(Events::Change);
  table.method<&PopupMenu::List>("List"_s);
  table.method<&PopupMenu::AddRow>("AddRow"_s);
  table.property<String, &PopupMenu::InitialValue, &PopupMenu::InitialValue>("InitialValue"_s);
  table.property<std::int32_t, &PopupMenu::ListIndex, &PopupMenu::ListIndex>("ListIndex"_s);
  table.readOnlyProperty<&PopupMenu::ListCount>("ListCount"_s);
  table.readOnlyProperty<&PopupMenu::Text>("Text"_s);
  fillTextStyle(table);
  table.property<&PopupMenu::DataSource>("DataSource"_s);
  table.property<&PopupMenu::DataField>("DataField"_s);
}

String PopupMenu::List(std::int32_t row) const {
  if (row < 0 || row >= ListCount()) Raise<OutOfBoundsException>();
  return rows_[static_cast<std::size_t>(row)];
}

void PopupMenu::AddRow(String text) {
  rows_.push_back(std::move(text));
  changed();
}

void PopupMenu::ListIndex(std::int32_t row) {
  const bool hasMoved = select(row);
  changed();
  if (hasMoved) raiseEvent(Events::Change);
}

String PopupMenu::Text() const {
  return listIndex_ < 0 ? String() : List(listIndex_);
}

void PopupMenu::InitialValue(String rows) {
  initialValue_ = std::move(rows);
  rows_.clear();
  listIndex_ = -1;
  std::string_view rest = initialValue_.view();
  while (!rest.empty()) {
    const std::size_t end = rest.find('\r');
    rows_.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  changed();
}

void PopupMenu::userChose(std::int32_t row) {
  if (Enabled() && select(row)) raiseEvent(Events::Change);
}

bool PopupMenu::select(std::int32_t row) {
  const std::int32_t before = listIndex_;
  listIndex_ = row < 0 || row >= ListCount() ? -1 : row;
  return listIndex_ != before;
}

}  // namespace veldrin
