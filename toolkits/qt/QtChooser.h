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
  /// Also sets the description: some screen readers read the selected row instead of the name.
  void setSpokenName(const QString& name) override;

 protected:
  void followOwnProperties() override;
  [[nodiscard]] bool showsAllText(const QFont& font) const override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  Ref<PopupMenu> chooser_;
};

}  // namespace veldrin
