#pragma once

#include <vector>

#include "shell/objects/Described.h"
#include "shell/window/Live.h"

namespace veldrin {

class Window;

/// A handler of a control's event: a function with the control as its only argument.
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

  /// A property whose changes are reported to the toolkit while the control is in an open window.
  template <class T>
  using Live = LiveProperty<Control, T>;

  String Name;  ///< for `RuntimeWindowControlByName`
  /// The index in a control array; `NoArray` for a control outside any array.
  std::int32_t Index = NoArray;
  static constexpr std::int32_t NoArray = INT32_MIN;

  /// The window that contains the control, or nil. The control does not keep the window alive.
  [[nodiscard]] Ref<veldrin::Window> Window() const;
  /// Sets the containing window, or none for nullptr. Called only by class `Window`.
  void moveTo(veldrin::Window* window) { window_ = window; }

  /// Raises "Close", then removes the control from its window. Does nothing inside the handler.
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
  std::vector<Function> handlers_;  ///< by the index of the event in the class
};

/// Binds the function to the event of this one control; nullptr leaves the event to its class.
/// Raises `IllegalCastException` if the object is not a control, `NilObjectException` for nil, and
/// what `RequireEvent` raises.
void _InstallInstanceEventHandler(const Ref<Object>& object, const String& event,
                                  EventHandler handler);

/// Sets `Me` to `Self`, a control, and `Self` to its window, as the handler of a control expects.
/// For a non-control that implements `_PaneChild`, `Self` is its window; any other object stays
/// `Self`.
void RuntimeSwapSelfAndMe(Ref<Object>& Self, Ref<Object>& Me);

}  // namespace veldrin
