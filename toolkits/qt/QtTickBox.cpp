#include "toolkits/qt/QtTickBox.h"

#include <QStyleOptionButton>
#include <utility>

namespace veldrin {

QtTickBox::QtTickBox(Ref<CheckBox> box, Delivery& delivery, QWidget& parent)
    : QCheckBox(&parent), QtControl(box, box.get()), box_(std::move(box)) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QCheckBox::toggled, this, [this, &delivery](bool isTicked) {
    if (isTicked == box_->Value()) return;  // the program made the change
    delivery.deliver(*box_, [&] { box_->userTicked(isTicked); });
    followOwnProperties();  // undoes a tick that was not delivered
  });
}

void QtTickBox::followOwnProperties() {
  setText(plainCaption(box_->Caption()));
  setChecked(box_->Value());
}

bool QtTickBox::showsAllText(const QFont& font) const {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
  return textFits(font, text(), box.size());
}

}  // namespace veldrin
