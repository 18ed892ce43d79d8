#pragma once

#include <QFont>
#include <QPalette>
#include <QWidget>

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"
#include "toolkits/qt/Delivery.h"

namespace veldrin {

/// The Qt side of a control. The Qt window owns the widget.
///
/// The widget mirrors the properties of its control, except those listed at `QtWindow`.
class QtControl {
 public:
  QtControl(const QtControl&) = delete;
  QtControl& operator=(const QtControl&) = delete;
  virtual ~QtControl() = default;

  [[nodiscard]] virtual QWidget& widget() = 0;
  [[nodiscard]] const RectControl& control() const { return *control_; }

  /// Updates the widget from the control.
  void follow();

  /// Whether the texts of the control fit in this font, or the control has its own font size.
  [[nodiscard]] bool fits(const QFont& font);

  /// Applies the font of the window, in the style of the control. A control's own size is reduced
  /// until its text fits.
  void applyFont(const QFont& font);

  /// Applies the colours of the control over those of the desktop.
  void applyColours();

  /// Sets the name that a screen reader speaks.
  virtual void setSpokenName(const QString& name) { widget().setAccessibleName(name); }

  /// Tells the control that it has lost the focus. Not called when a menu takes the focus.
  virtual void reportFocusLoss(Delivery& delivery);

  /// If this is a label beside the field, makes it the spoken name of the field.
  virtual void nameField(QtControl& /*field*/) {}
  /// Whether a label beside this control is its spoken name.
  [[nodiscard]] virtual bool isNamedByLabel() const { return false; }

  /// Takes the focus. Called when the window opens.
  virtual void takeFirstFocus() { widget().setFocus(Qt::TabFocusReason); }

 protected:
  /// `style` is nil for a control without text.
  QtControl(Ref<RectControl> control, const TextStyle* style)
      : control_(std::move(control)), style_(style) {}

  /// Updates the properties that only this kind of control has.
  virtual void followOwnProperties() {}
  /// Whether the texts of the control fit in this font.
  [[nodiscard]] virtual bool showsAllText(const QFont& /*font*/) const { return true; }
  /// Whether some desktop styles draw its frame in a darkened background colour.
  [[nodiscard]] virtual bool isFramed() const { return false; }
  /// Adds the control's own colours to the palette.
  virtual void addOwnColours(QPalette& /*palette*/) const {}

 private:
  /// 0 if the control has no font size of its own.
  [[nodiscard]] double ownSizeInPoints();
  [[nodiscard]] QFont styledFont(const QFont& font) const;

  Ref<RectControl> control_;
  const TextStyle* style_;
  bool hasFont_ = false;     ///< `applyFont` has been called
  bool hasOwnSize_ = false;  ///< at the last `applyFont`
  QFont windowFont_;         ///< argument of the last `applyFont`
  QFont styledFont_;         ///< `windowFont_` in the control's style
  QPalette colours_;
};

/// Creates the widget of a control inside `parent`; nil for a class without a widget.
QtControl* makeQtControl(const Ref<Control>& control, Delivery& delivery, QWidget& parent);

/// Whether the text, with its line breaks, fits in the box.
bool textFits(const QFont& font, const QString& text, const QSize& box);

inline QColor toQt(const Color& colour) {
  return {colour.red, colour.green, colour.blue};
}

}  // namespace veldrin
