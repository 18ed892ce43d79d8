#include "shell/window/MenuItem.h"

#include <algorithm>

#include "shell/window/Session.h"

namespace veldrin {

void MenuItem::fillTable(ClassTable<MenuItem>& table) {
  table.event(Events::Action);
  table.method<&MenuItem::Constructor>("Constructor"_s);
  table.method<&MenuItem::Append>("Append"_s);
  table.method<&MenuItem::Child>("Child"_s);
  table.method<&MenuItem::_Lookup>("_Lookup"_s);
  table.method<&MenuItem::Enable>("Enable"_s);
  table.property<&MenuItem::Name>("Name"_s);
  table.property<&MenuItem::AutoEnable>("AutoEnable"_s);
  table.property<&MenuItem::Text>("Text"_s);
  table.property<&MenuItem::KeyboardShortcut>("KeyboardShortcut"_s);
  table.property<&MenuItem::Checked>("Checked"_s);
  table.property<&MenuItem::Enabled>("Enabled"_s);
}

void QuitMenuItem::fillTable(ClassTable<QuitMenuItem>& table) {
  table.handles<&QuitMenuItem::Event_Action>(Events::Action);
  table.event(Events::Action);
  table.method<&QuitMenuItem::Event_Action>("Event_Action"_s);
}

void MenuItem::Append(const Ref<MenuItem>& item) {
  if (item->contains(*this)) Raise<RuntimeException>();
  children_.push_back(item);
  changed();
}

bool MenuItem::contains(const MenuItem& item) const {
  RuntimeStackCheck();
  return this == &item || std::ranges::any_of(children_, [&](const Ref<MenuItem>& child) {
           return child->contains(item);
         });
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
  if (!Enabled()) return true;
  return InForce<Session>::get().handleMenuCommand(Ref<MenuItem>(this)) ||
         callHandler(*this, Events::Action);
}

void MenuItem::changed() const {
  // An item may outlive the session.
  if (InForce<Session>::exists()) InForce<Session>::get().menuItemChanged(*this);
}

bool QuitMenuItem::Event_Action() {
  return QuitMenuAction(*this);
}

bool QuitMenuAction(MenuItem& /*item*/) {
  InForce<Session>::get().endApplication();
  return true;
}

}  // namespace veldrin
