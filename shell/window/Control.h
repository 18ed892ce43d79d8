#pragma once

#include <vector>

#include "shell/objects/Described.h"
#include "shell/window/Live.h"

namespace veldrin {

class Window;

/// A handler of a control's event: a function with the control as its only argument.
using EventHandler = Event<void()>::Handler;

/// The base class of all controls. Holds the name, the window and the event handlers.
class Control : public Described<Control, Object> {
 public:
  static constexpr FixedString FullName = "Control";
  static void fillTable(ClassTable<Control>& table);

  struct Events {
    static constexpr Event<void()> Open{"Open"_s};
    static constexpr Event<void()> Close{"Close"_s};
  };

  /// A property whose changes are reported to the toolkit while the control is in an open window.
  template <class T>
  using Live = LiveProperty<Control, T>;

  String Name;  ///< set by `Window::_AddControl`; writing it does not affect look-ups
  /// The index in a control array; `NoArray` for a control that is not in an array.
  std::int32_t Index = NoArray;
  static constexpr std::int32_t NoArray = INT32_MIN;

  /// The window that contains the control, or nil. The control does not keep the window alive.
  [[nodiscard]] Ref<veldrin::Window> Window() const;
  /// Sets the containing window, or none for nullptr. Called only by class `Window`.
  void moveTo(veldrin::Window* window) { window_ = window; }

  /// Raises "Close", then removes the control from its window. Does nothing during "Close".
  virtual void Close();

  /// Calls the handler of this object for the event, else the handler of its class, if any.
  /// Raises what `callHandler` raises.
  void raiseEvent(const String& event);
  void raiseEvent(const Event<void()>& event) { raiseEvent(event.name()); }

 protected:
  /// Tells the toolkit of a change made by the program.
  void changed();

 private:
  template <class Owner, class T>
  friend class veldrin::LiveProperty;
  friend void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                           EventHandler handler);

  veldrin::Window* window_ = nullptr;
  bool isClosing_ = false;
  std::vector<Function> handlers_;  ///< by index of the event; nullptr means the class's handler
};

/// Sets the handler of an event for this object only; nullptr leaves the event to the class.
/// Raises `IllegalCastException` if the object is not a control, `NilObjectException` for nil, and
/// what `RequireEvent` raises.
void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                  EventHandler handler);

/// Sets `Me` to the control in `Self`, then `Self` to the control's window, as a control's handlers
/// expect. Does the same for a non-control that implements `_PaneChild`. Any other object is in
/// both afterwards.
void RuntimeSwapSelfAndMe(Ref<Object>& Self, Ref<Object>& Me);

}  // namespace veldrin
