#pragma once

#include <QComboBox>

#include "shell/PopupMenu.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A drop-down list.
class QtChooser final : public QComboBox, public QtControl {
 public:
  QtChooser(Ref<PopupMenu> chooser, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  void follow() override;
  [[nodiscard]] bool fits(const QFont& font) const override;

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  Ref<PopupMenu> chooser_;
};

}  // namespace veldrin
