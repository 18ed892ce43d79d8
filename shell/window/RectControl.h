#pragma once

#include "shell/window/Control.h"

namespace veldrin {

/// A control with a rectangle in its window. All numbers are pixels of the window's content, also
/// for a control that lies inside another; the locks would act if the window could be resized.
class RectControl : public Described<RectControl, Control> {
 public:
  static constexpr FixedString FullName = "RectControl";
  static void fillTable(ClassTable<RectControl>& table);

  struct Events : Control::Events {
    static constexpr Event<void()> LostFocus{"LostFocus"_s};
  };

  /// Readies a new control.
  void Constructor() {}

  Live<std::int32_t> Left{*this};
  Live<std::int32_t> Top{*this};
  Live<std::int32_t> Width{*this};
  Live<std::int32_t> Height{*this};
  bool LockLeft = false;
  bool LockTop = false;
  bool LockRight = false;
  bool LockBottom = false;
  std::int32_t TabPanelIndex = 0;
  Live<std::int32_t> TabIndex{*this};  ///< the place in the order of the focus, in one parent
  Live<bool> TabStop{*this, true};
  Live<String> InitialParent{*this};  ///< the name of what it lies in, empty for the window
  Live<bool> Visible{*this, true};
  Live<String> HelpTag{*this};
  Live<bool> AutoDeactivate{*this, true};
  Live<bool> Enabled{*this, true};

  /// Whether the keyboard focus stops here now.
  [[nodiscard]] bool takesFocus() const {
    return isFocusable() && TabStop() && Visible() && Enabled();
  }

  /// A person has left the control: raises "LostFocus". A control that has been disabled while it
  /// had the focus is not left by a person, and raises nothing.
  void userLeft() { raiseForPerson(Events::LostFocus); }

 protected:
  /// Raises the event of something that a person has done, unless the control is disabled: then it
  /// raises none, whoever presses it.
  void raiseForPerson(const Event<void()>& event) {
    if (Enabled()) raiseEvent(event);
  }

 private:
  /// Whether the class has something to do with a focus.
  [[nodiscard]] virtual bool isFocusable() const { return false; }
};

}  // namespace veldrin
