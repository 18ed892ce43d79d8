#pragma once

#include <QFont>
#include <QPalette>
#include <QWidget>

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"
#include "toolkits/qt/Delivery.h"

namespace veldrin {

/// A control of a window as Qt shows it. The widget is the window's; it goes with it.
///
/// The widget follows the properties of its control, but for those that `QtWindow` lists.
class QtControl {
 public:
  QtControl(const QtControl&) = delete;
  QtControl& operator=(const QtControl&) = delete;
  virtual ~QtControl() = default;

  [[nodiscard]] virtual QWidget& widget() = 0;
  [[nodiscard]] const RectControl& control() const { return *control_; }

  /// Shows what the program has changed.
  void follow();

  /// Whether every text of the control shows whole in the font, or has a size of its own.
  [[nodiscard]] bool fits(const QFont& font);

  /// Writes in the font, in the control's style. A size of its own is made smaller until the text
  /// shows whole: no other control has to follow it.
  void write(const QFont& font);

  /// Shows the colours of the control on the desktop's own.
  void colour();

  /// Gives the control the name that a screen reader says.
  virtual void call(const QString& name) { widget().setAccessibleName(name); }

  /// The focus has gone elsewhere for good.
  virtual void leave(Delivery& delivery);

  /// Makes the control the name of the field, if it is a label that stands beside it.
  virtual void nameField(QtControl& /*field*/) {}
  /// Whether it is its label that names the control.
  [[nodiscard]] virtual bool isNamedByLabel() const { return false; }

  /// Takes the focus of the window that has just been opened.
  virtual void takeFirstFocus() { widget().setFocus(Qt::TabFocusReason); }

 protected:
  /// `style` is the control's, nil for one with no text.
  QtControl(Ref<RectControl> control, const TextStyle* style)
      : control_(std::move(control)), style_(style) {}

  /// Shows what only this kind of control has.
  virtual void followKind() {}
  /// Whether every text of the control shows whole in the font.
  [[nodiscard]] virtual bool showsWhole(const QFont& /*font*/) const { return true; }
  /// Whether the desktop's style frames the control in a darker background.
  [[nodiscard]] virtual bool isFramed() const { return false; }
  /// Enters the colours that are the control's own.
  virtual void colourKind(QPalette& /*palette*/) const {}

 private:
  /// The size of its own in points; 0 for none.
  [[nodiscard]] double ownPoints();
  [[nodiscard]] QFont styled(const QFont& font) const;

  Ref<RectControl> control_;
  const TextStyle* style_;
  bool written_ = false;  ///< in a font of the window
  bool sized_ = false;    ///< in a size of its own by then
  QFont shared_;          ///< that font
  QFont styled_;          ///< it in the control's style
  QPalette colours_;
};

/// The widget for a control, made inside `parent` at the control's place; nil for a class of
/// control that has nothing to show.
QtControl* makeQtControl(const Ref<Control>& control, Delivery& delivery, QWidget& parent);

/// Whether the text, with its line breaks, shows whole in a box of that size.
bool textFits(const QFont& font, const QString& text, const QSize& box);

/// A colour of a control, as Qt has it.
inline QColor toQt(const Color& colour) {
  return {colour.red, colour.green, colour.blue};
}

}  // namespace veldrin
