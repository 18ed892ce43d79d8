#pragma once

#include <QCheckBox>

#include "shell/CheckBox.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A check box with its caption.
class QtTickBox final : public QCheckBox, public QtControl {
 public:
  QtTickBox(Ref<CheckBox> box, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  void follow() override { setChecked(box_->Value()); }
  [[nodiscard]] bool fits(const QFont& font) const override;

 private:
  Ref<CheckBox> box_;
};

}  // namespace veldrin
