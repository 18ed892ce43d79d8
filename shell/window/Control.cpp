#include "shell/window/Control.h"

#include <utility>

#include "shell/objects/ScopedFlag.h"
#include "shell/window/PaneChild.h"
#include "shell/window/Toolkit.h"
#include "shell/window/Window.h"

namespace veldrin {

void Control::fillTable(ClassTable<Control>& table) {
  table.event(Events::Open, Events::Close);
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
  callHandler<void>(*this, event, handlers_);
}

void Control::Close() {
  if (isClosing_) return;
  const Ref<Control> self(this);
  const ScopedFlag closing(isClosing_);
  raiseEvent(Events::Close);
  if (window_ != nullptr) std::exchange(window_, nullptr)->_RemoveControl(self);
}

void Control::changed() {
  if (window_ != nullptr && window_->isOpen()) InForce<Toolkit>::get().controlChanged(*this);
}

void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                  EventHandler handler) {
  const Ref<Control> control = CheckCast<Control>(object);
  const std::size_t index =
      RequireEvent(*control->classRecord(), event, Event<void()>::signature());
  if (control->handlers_.size() <= index) control->handlers_.resize(index + 1);
  control->handlers_[index] = reinterpret_cast<Function>(handler);
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
