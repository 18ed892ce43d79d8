#pragma once

#include <QLabel>

#include "shell/window/StaticText.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A text that stands in the window. A screen reader is told when it changes.
class QtLabel final : public QLabel, public QtControl {
 public:
  QtLabel(Ref<StaticText> text, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  /// A label stands to the left of its field, in one row of one panel.
  void nameField(QtControl& field) override;

 protected:
  void followKind() override;
  [[nodiscard]] bool showsWhole(const QFont& font) const override;
  void colourKind(QPalette& palette) const override;

 private:
  /// The text, with lines as Qt breaks them.
  [[nodiscard]] QString lines() const;

  Ref<StaticText> text_;
};

}  // namespace veldrin
