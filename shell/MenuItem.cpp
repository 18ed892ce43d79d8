#include "shell/MenuItem.h"

#include <algorithm>

#include "shell/Application.h"

namespace veldrin {

void MenuItem::fillTable(ClassTable<MenuItem>& table) {
  table.event("Action"_s);
  table.method<&MenuItem::Constructor>("Constructor"_s);
  table.method<&MenuItem::Append>("Append"_s);
  table.method<&MenuItem::Child>("Child"_s);
  table.method<&MenuItem::_Lookup>("_Lookup"_s);
  table.method<&MenuItem::Enable>("Enable"_s);
  table.property<&MenuItem::Name>("Name"_s);
  table.property<&MenuItem::AutoEnable>("AutoEnable"_s);
  table.property<&MenuItem::Text>("Text"_s);
  table.property<&MenuItem::KeyboardShortcut>("KeyboardShortcut"_s);
  table.property<&MenuItem::Enabled>("Enabled"_s);
}

void QuitMenuItem::fillTable(ClassTable<QuitMenuItem>& table) {
  table.handles<&QuitMenuItem::Event_Action>("Action"_s);
  table.event("Action"_s);
  table.method<&QuitMenuItem::Event_Action>("Event_Action"_s);
}

void MenuItem::Append(const Ref<MenuItem>& item) {
  children_.push_back(item);
}

Ref<MenuItem> MenuItem::Child(const String& name) const {
  const auto child = std::ranges::find_if(
      children_, [&name](const Ref<MenuItem>& item) { return item->Name == name; });
  return child == children_.end() ? nullptr : *child;
}

Ref<MenuItem> MenuItem::_Lookup(const String& name) const {
  RuntimeStackCheck();
  for (const Ref<MenuItem>& child : children_) {
    if (child->Name == name) return child;
    if (Ref<MenuItem> deeper = child->_Lookup(name)) return deeper;
  }
  return nullptr;
}

bool MenuItem::userChose() {
  RuntimeStackCheck();
  const ClassRecord& record = *classRecord();
  const auto index = static_cast<std::size_t>(FindEvent(record, "Action"_s));
  const Function handler = record.eventRows[index].handler;
  return handler != nullptr && reinterpret_cast<bool (*)(Object*)>(handler)(this);
}

bool QuitMenuItem::Event_Action() {
  return QuitMenuAction(*this);
}

}  // namespace veldrin
