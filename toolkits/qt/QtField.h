#pragma once

#include <QLineEdit>

#include "shell/window/TextField.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A one-line text field. Reports every change by the user to the control. A black text and a white
/// background are drawn in the desktop's colours.
class QtField final : public QLineEdit, public QtControl {
 public:
  QtField(Ref<TextField> field, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  [[nodiscard]] bool isNamedByLabel() const override { return true; }
  void takeFirstFocus() override;

 protected:
  void followOwnProperties() override;
  [[nodiscard]] bool showsAllText(const QFont& font) const override;
  [[nodiscard]] bool isFramed() const override { return true; }
  void addOwnColours(QPalette& palette) const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void focusMoved(const QWidget* widget);

  Ref<TextField> field_;
  Delivery& delivery_;
  bool isFocusLent_ = false;  ///< a menu has the focus temporarily
  QObject context_;           ///< disconnects before the destructor of the widget changes the focus
};

}  // namespace veldrin
