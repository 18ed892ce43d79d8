#pragma once

#include <QLineEdit>

#include "shell/window/TextField.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A line of text with the desktop's own editing. The control is told of every text that is not its
/// own already; black on white means the desktop's colours of text. What the program writes is
/// shown whole, however few letters a person can type.
class QtField final : public QLineEdit, public QtControl {
 public:
  QtField(Ref<TextField> field, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  [[nodiscard]] bool isNamedByLabel() const override { return true; }
  void takeFirstFocus() override;

 protected:
  void followKind() override;
  [[nodiscard]] bool showsWhole(const QFont& font) const override;
  [[nodiscard]] bool isFramed() const override { return true; }
  void colourKind(QPalette& palette) const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void focusMoved(const QWidget* widget);

  Ref<TextField> field_;
  Delivery& delivery_;
  bool lent_ = false;  ///< a menu has the focus, and is to give it back
  QObject context_;    ///< ends a connection ahead of the widget, which loses its focus as it goes
};

}  // namespace veldrin
