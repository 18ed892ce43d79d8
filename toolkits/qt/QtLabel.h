#pragma once

#include <QLabel>

#include "shell/StaticText.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A text that stands in the window. A screen reader is told when it changes.
class QtLabel final : public QLabel, public QtControl {
 public:
  QtLabel(Ref<StaticText> text, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  void follow() override;
  [[nodiscard]] bool fits(const QFont& font) const override;
  void write(const QFont& font) override;

 private:
  [[nodiscard]] bool hasOwnSize() const { return text_->TextSize > 0.0F; }

  Ref<StaticText> text_;
};

}  // namespace veldrin
