#pragma once

#include <QFont>
#include <QWidget>

#include "shell/RectControl.h"
#include "toolkits/qt/Delivery.h"

namespace veldrin {

/// A control of a window as Qt shows it. The widget is the window's; it goes with it.
class QtControl {
 public:
  QtControl(const QtControl&) = delete;
  QtControl& operator=(const QtControl&) = delete;
  virtual ~QtControl() = default;

  [[nodiscard]] virtual QWidget& widget() = 0;

  /// Shows what the program has changed.
  virtual void follow() {}

  /// Whether every text of the control shows whole in the font.
  [[nodiscard]] virtual bool fits(const QFont& /*font*/) const { return true; }

  /// Writes in the font, or in the size that the control has of its own.
  virtual void write(const QFont& font) { widget().setFont(font); }

 protected:
  QtControl() = default;
};

/// The widget for a control, made inside `parent` at the control's place; nil for a class of
/// control that has nothing to show.
QtControl* makeQtControl(const Ref<Control>& control, Delivery& delivery, QWidget& parent);

/// Whether the text, with its line breaks, shows whole in a box of that size.
bool textFits(const QFont& font, const QString& text, const QSize& box);

}  // namespace veldrin
