#pragma once

#include <QWidget>

#include "shell/window/Placard.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A framed panel behind the controls that it groups.
class QtPanel final : public QWidget, public QtControl {
 public:
  QtPanel(const Ref<Placard>& panel, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace veldrin
