#pragma once

#include "shell/window/Control.h"

namespace veldrin {

/// A control with a rectangle, in pixels relative to the window's content, even inside another
/// control. The locks have no effect: no toolkit reads them.
class RectControl : public Described<RectControl, Control> {
 public:
  static constexpr FixedString FullName = "RectControl";
  static void fillTable(ClassTable<RectControl>& table);

  struct Events : Control::Events {
    static constexpr Event<void()> LostFocus{"LostFocus"_s};
  };

  /// Does nothing.
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
  Live<std::int32_t> TabIndex{*this};  ///< position in the focus order within a parent
  Live<bool> TabStop{*this, true};
  Live<String> InitialParent{*this};  ///< name of the parent control; empty for the window
  Live<bool> Visible{*this, true};
  Live<String> HelpTag{*this};
  Live<bool> AutoDeactivate{*this, true};
  Live<bool> Enabled{*this, true};

  /// Whether the control can get the keyboard focus now.
  [[nodiscard]] bool takesFocus() const {
    return isFocusable() && TabStop() && Visible() && Enabled();
  }

  /// The user has moved the focus away. Raises "LostFocus", unless the control is disabled.
  void userLeft() { raiseForUser(Events::LostFocus); }

 protected:
  /// Raises the event of a user action, unless the control is disabled.
  void raiseForUser(const Event<void()>& event) {
    if (Enabled()) raiseEvent(event);
  }

 private:
  /// Whether controls of the class can have the keyboard focus at all.
  [[nodiscard]] virtual bool isFocusable() const { return false; }
};

}  // namespace veldrin
