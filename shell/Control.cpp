#include "shell/Control.h"

#include <utility>

#include "shell/PaneChild.h"
#include "shell/Runtime.h"
#include "shell/Window.h"
#include "shell/objects/Failure.h"

namespace veldrin {

void Control::fillTable(ClassTable<Control>& table) {
  table.event("Open"_s);
  table.event("Close"_s);
  table.method<&Control::Close>("Close"_s);
  table.property<&Control::Name>("Name"_s);
  table.property<&Control::Index>("Index"_s);
  table.readOnlyProperty<static_cast<Ref<veldrin::Window> (Control::*)() const>(&Control::Window)>(
      "Window"_s);
}

Ref<Window> Control::Window() const {
  return Ref<veldrin::Window>(window_);
}

void Control::raiseEvent(const String& event) {
  RuntimeStackCheck();
  const ClassRecord& record = *classRecord();
  const std::int32_t found = FindEvent(record, event);
  if (found < 0) Raise<KeyNotFoundException>();
  const auto index = static_cast<std::size_t>(found);
  // The handler may close the window, which would take this control away.
  const Ref<Control> self(this);
  if (index < handlers_.size() && handlers_[index] != nullptr) {
    handlers_[index](this);
  } else if (const Function handler = record.eventRows[index].handler; handler != nullptr) {
    reinterpret_cast<EventHandler>(handler)(this);
  }
}

void Control::Close() {
  const Ref<Control> self(this);
  raiseEvent("Close"_s);
  if (window_ != nullptr) std::exchange(window_, nullptr)->_RemoveControl(self);
}

void Control::changed() {
  if (window_ != nullptr && window_->isOpen()) Runtime::current().toolkit.controlChanged(*this);
}

void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                  EventHandler handler) {
  const Ref<Control> control = CheckCast<Control>(object);
  const std::int32_t found = FindEvent(*control->classRecord(), event);
  if (found < 0) Raise<KeyNotFoundException>();
  const auto index = static_cast<std::size_t>(found);
  if (control->handlers_.size() <= index) control->handlers_.resize(index + 1);
  control->handlers_[index] = handler;
}

void RuntimeSwapSelfAndMe(Ref<Object>& Self, Ref<Object>& Me) {
  const Ref<Object> x = Self;
  Me = x;
  if (RuntimeObjectIsa(x.get(), Control::__Lookup())) {
    Self = CheckCast<Control>(x)->Window();
  } else if (const auto* row = RuntimeLookupInterfaceVtable(x.get(), _PaneChild::__Lookup())) {
    Self = reinterpret_cast<Ref<Window> (*)(Object*)>(row->operations.at(1))(x.get());
  }
}

}  // namespace veldrin
