#include "toolkits/qt/QtTickBox.h"

#include <QStyleOptionButton>
#include <utility>

namespace veldrin {

QtTickBox::QtTickBox(Ref<CheckBox> box, Delivery& delivery, QWidget& parent)
    : QCheckBox(&parent), box_(std::move(box)) {
  // In the constructor of the base a screen reader would be told of a box that is not this one yet.
  setText(plainCaption(box_->Caption));
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QCheckBox::toggled, this, [this, &delivery](bool ticked) {
    if (ticked == box_->Value()) return;  // the program's own change, come back
    delivery.deliver(*box_, [&] { box_->userTicked(ticked); });
    follow();  // what was not delivered is taken back
  });
}

bool QtTickBox::fits(const QFont& font) const {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
  return textFits(font, text(), box.size());
}

}  // namespace veldrin
