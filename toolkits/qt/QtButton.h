#pragma once

#include <QPushButton>

#include "shell/window/PushButton.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A button. The space bar presses it if it has the focus; Return and Escape do not.
class QtButton final : public QPushButton, public QtControl {
 public:
  QtButton(Ref<PushButton> button, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }

 protected:
  void followOwnProperties() override;
  [[nodiscard]] bool showsAllText(const QFont& font) const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Ref<PushButton> button_;
};

}  // namespace veldrin
