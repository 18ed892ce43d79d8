#pragma once

#include "shell/Control.h"

namespace veldrin {

/// A control with a rectangle in its window. All numbers are pixels of the window's content, also
/// for a control that lies inside another; the locks would act if the window could be resized.
class RectControl : public Described<RectControl, Control> {
 public:
  static constexpr FixedString FullName = "RectControl";
  static void fillTable(ClassTable<RectControl>& table);

  /// Readies a new control.
  void Constructor() {}

  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  bool LockLeft = false;
  bool LockTop = false;
  bool LockRight = false;
  bool LockBottom = false;
  std::int32_t TabPanelIndex = 0;
  std::int32_t TabIndex = 0;  ///< the place in the focus order, within one parent
  bool TabStop = true;
  String InitialParent;  ///< the name of the control it lies in, empty for the window
  bool Visible = true;
  String HelpTag;
  bool AutoDeactivate = true;
  bool Enabled = true;

  /// Whether the keyboard focus stops here now.
  [[nodiscard]] bool takesFocus() const { return isFocusable() && TabStop && Visible && Enabled; }

  /// A person has left the control: raises "LostFocus".
  void userLeft() { raiseEvent("LostFocus"_s); }

 private:
  /// Whether the class has something to do with a focus.
  [[nodiscard]] virtual bool isFocusable() const { return false; }
};

}  // namespace veldrin
