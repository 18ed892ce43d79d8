#pragma once

#include <QCheckBox>

#include "shell/window/CheckBox.h"
#include "toolkits/qt/QtControl.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {

/// A check box. Clicking anywhere in its rectangle toggles it.
class QtTickBox final : public QCheckBox, public QtControl {
 public:
  QtTickBox(Ref<CheckBox> box, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  /// The caption, without the escaping of "&".
  [[nodiscard]] QString spokenName() const { return toQt(box_->Caption()); }

 protected:
  void followOwnProperties() override;
  [[nodiscard]] bool showsAllText(const QFont& font) const override;
  [[nodiscard]] bool isFramed() const override { return true; }
  [[nodiscard]] bool hitButton(const QPoint& place) const override {
    return rect().contains(place);
  }

 private:
  Ref<CheckBox> box_;
};

}  // namespace veldrin
