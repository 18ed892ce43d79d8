#pragma once

#include <vector>

#include "shell/objects/Described.h"
#include "shell/window/Live.h"

namespace veldrin {

class Window;

/// What receives an event of a control: a bare function that gets the control as its one argument.
using EventHandler = Event<void()>::Handler;

/// The root of all controls: a name, a window, and the handlers of its events.
class Control : public Described<Control, Object> {
 public:
  static constexpr FixedString FullName = "Control";
  static void fillTable(ClassTable<Control>& table);

  struct Events {
    static constexpr Event<void()> Open{"Open"_s};
    static constexpr Event<void()> Close{"Close"_s};
  };

  /// A property that the toolkit is told of while the control is in an open window.
  template <class T>
  using Live = LiveProperty<Control, T>;

  String Name;  ///< by which `RuntimeWindowControlByName` finds it
  /// The place in a control array; the smallest integer marks a control that stands by itself.
  std::int32_t Index = NoArray;
  static constexpr std::int32_t NoArray = INT32_MIN;

  /// The window that the control lies in, or nil. Not counted: the window owns its controls.
  [[nodiscard]] Ref<veldrin::Window> Window() const;
  /// Moves the control into a window, or out of the one it lies in; `Window::_AddControl` and the
  /// window's end call it.
  void moveTo(veldrin::Window* window) { window_ = window; }

  /// Takes the control out of its window; "Close" is raised before.
  void Close();

  /// Runs the handler of the event, if there is one: that of this object, else that of its class.
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
  std::vector<Function> handlers_;  ///< by the index of the event in the class
};

/// Binds the function to that event of this one control; nil leaves the event to its class. Raises
/// `IllegalCastException` for what is no control, `NilObjectException` for nil, and what
/// `RequireEvent` raises.
void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                  EventHandler handler);

/// Puts right what a control's handler is called with: afterwards `Self` is the window and `Me` the
/// control. What is no control but has a window by `_PaneChild` gives that; anything else leaves
/// `Self` as it was, with `Me` the same object.
void RuntimeSwapSelfAndMe(Ref<Object>& Self, Ref<Object>& Me);

}  // namespace veldrin
