#pragma once

#include <QComboBox>

#include "shell/window/PopupMenu.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A drop-down list.
class QtChooser final : public QComboBox, public QtControl {
 public:
  QtChooser(Ref<PopupMenu> chooser, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  /// The name that is said of a list is its selected row on some desktops, whatever it is called:
  /// so it is what the list is described by as well.
  void call(const QString& name) override;

 protected:
  void followKind() override;
  [[nodiscard]] bool showsWhole(const QFont& font) const override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  Ref<PopupMenu> chooser_;
};

}  // namespace veldrin
