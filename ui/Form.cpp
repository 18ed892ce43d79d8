#include "daystatus/Veldrin.h"

#include <string>
#include <utility>

#include "daystatus/FormParts.h"
#include "shell/objects/Delegate.h"
#include "shell/objects/Failure.h"
#include "ui/FormStreams.h"
#include "ui/MenuBar1.h"
#include "ui/PropertyStream.h"

namespace veldrin {
namespace {

/// Makes the controls of one window. Steps after `_AddControl` look up the control by its name.
class ControlMaker {
 public:
  explicit ControlMaker(Veldrin& window) : window_(window) {}

  void makeAll() { makeRows(std::make_index_sequence<FormTable.size()>()); }

 private:
  template <std::size_t... Row>
  void makeRows(std::index_sequence<Row...> /*rows*/) {
    (makeAs<ControlClass<FormTable[Row].kind>>(Row), ...);
  }

  template <class T>
  [[nodiscard]] Ref<T> control(const String& name) const {
    return RuntimeWindowControlByName<T>(window_, name);
  }

  template <class T>
  void makeAs(std::size_t row) {
    const String name = FormNames[row];
    const Ref<Object> made = window_.__New(T::__Lookup());
    CheckCast<RectControl>(made)->Constructor();
    window_._AddControl(name, made);
    // Streams cannot hold the types of `TextSize` and `TextUnit`.
    if constexpr (requires { &T::TextUnit; }) {
      const float size = FormTable[row].extras.textSize;
      if (size != 0.0F) control<T>(name)->TextSize(size);
      control<T>(name)->TextUnit(FontUnits::Default);
    }
    _SetProperties(control<T>(name), FormStreams[row]);
    for (const Wiring& wiring : Wirings) {
      if (wiring.row == row) wire(control<T>(name), wiring);
    }
  }

  void wire(const Ref<Object>& made, const Wiring& wiring) const {
    const Function handler = FindVirtualOperation(*window_.classRecord(), wiring.name);
    if (handler == nullptr) {
      throw FatalFault("The form binds an event to " + std::string(wiring.name.view()) +
                       ", which the window does not have.");
    }
    const Ref<Delegate> delegate = RuntimeCreateDelegate(&Delegate::IM_Invoke, handler,
                                                         Ref<Object>(&window_), DelegateSignature);
    const Function target = delegate ? delegate->target() : nullptr;
    _InstallInstanceEventHandler(made, wiring.event, reinterpret_cast<EventHandler>(target));
  }

  Veldrin& window_;
};

}  // namespace

void Veldrin::Layout() {
  MenuBar(implicit::MenuBar1());
  _SetProperties(Ref<Object>(this), WindowStream);
}

void Veldrin::CreateControls() {
  _CreateControls0();
}

void Veldrin::_CreateControls0() {
  ControlMaker(*this).makeAll();
}

}  // namespace veldrin
