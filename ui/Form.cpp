#include "daystatus/Veldrin.h"

#include <string>

#include "shell/objects/Delegate.h"
#include "shell/objects/Failure.h"
#include "ui/FormStreams.h"
#include "ui/FormTable.h"
#include "ui/MenuBar1.h"
#include "ui/PropertyStream.h"

namespace veldrin {
namespace {

/// An event of a control that the window handles: a row of the table below.
struct Wiring {
  std::string_view control;
  StringConstant event;
  StringConstant handler;  ///< the name of the window's method
};

constexpr std::array Wirings{
    Wiring{"BackOneDay", "Action"_s, "BackOneDay_Action"_s},
    Wiring{"ForwardOneDay", "Action"_s, "ForwardOneDay_Action"_s},
    Wiring{"GenerateButton", "Action"_s, "GenerateButton_Action"_s},
    Wiring{"WhichYear", "Open"_s, "WhichYear_Open"_s},
    Wiring{"WhichYear", "Change"_s, "WhichYear_Change"_s},
    Wiring{"DownUnderFlag", "Action"_s, "DownUnderFlag_Action"_s},
    Wiring{"DaylightSavings", "Action"_s, "DaylightSavings_Action"_s},
    Wiring{"Latitude", "LostFocus"_s, "Latitude_LostFocus"_s},
    Wiring{"TimeZone", "LostFocus"_s, "TimeZone_LostFocus"_s},
    Wiring{"Longitude", "LostFocus"_s, "Longitude_LostFocus"_s},
};

/// Makes the controls of one window. Every step fetches the control anew by its name.
class ControlMaker {
 public:
  explicit ControlMaker(Veldrin& window) : window_(window) {}

  void make(std::size_t row) {
    switch (FormTable[row].kind) {
      case ControlKind::Placard:
        return makeAs<Placard>(row);
      case ControlKind::StaticText:
        return makeAs<StaticText>(row);
      case ControlKind::PushButton:
        return makeAs<PushButton>(row);
      case ControlKind::PopupMenu:
        return makeAs<PopupMenu>(row);
      case ControlKind::TextField:
        return makeAs<TextField>(row);
      case ControlKind::CheckBox:
        return makeAs<CheckBox>(row);
    }
  }

 private:
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
    // Streams have no encoding for the types of these two.
    if constexpr (requires { &T::TextUnit; }) {
      const float size = FormTable[row].extras.textSize;
      if (size != 0.0F) control<T>(name)->TextSize(size);
      control<T>(name)->TextUnit(FontUnits::Default);
    }
    _SetProperties(control<T>(name), FormStreams[row]);
    for (const Wiring& wiring : Wirings) {
      if (wiring.control == FormTable[row].name) wire(control<T>(name), wiring);
    }
  }

  void wire(const Ref<Object>& made, const Wiring& wiring) const {
    const Function handler = FindVirtualOperation(*window_.classRecord(), wiring.handler);
    if (handler == nullptr) {
      throw FatalFault("The form binds an event to " + std::string(wiring.handler.view()) +
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
  ControlMaker maker(*this);
  for (std::size_t row = 0; row < FormTable.size(); ++row) maker.make(row);
}

}  // namespace veldrin
