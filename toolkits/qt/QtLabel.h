#pragma once

#include <QLabel>

#include "shell/window/StaticText.h"
#include "toolkits/qt/QtControl.h"

namespace veldrin {

/// A static text. Announces changes to screen readers.
class QtLabel final : public QLabel, public QtControl {
 public:
  QtLabel(Ref<StaticText> text, Delivery& delivery, QWidget& parent);

  QWidget& widget() override { return *this; }
  /// A label belongs to the field to its right, in the same row and panel.
  void nameField(QtControl& field) override;

 protected:
  void followOwnProperties() override;
  [[nodiscard]] bool showsAllText(const QFont& font) const override;
  void addOwnColours(QPalette& palette) const override;

 private:
  /// The text with "\n" line ends.
  [[nodiscard]] QString lines() const;

  Ref<StaticText> text_;
};

}  // namespace veldrin
