#pragma once

#include <QPushButton>

#include "shell/PushButton.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A button. The blank presses it where it has the focus, Return and Escape do not.
class QtButton final : public QPushButton, public QtControl {
 public:
  QtButton(const Ref<PushButton>& button, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  [[nodiscard]] bool fits(const QFont& font) const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace veldrin
