#include "toolkits/qt/QtButton.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <utility>

#include "toolkits/qt/QtText.h"

namespace veldrin {

QtButton::QtButton(Ref<PushButton> button, Delivery& delivery, QWidget& parent)
    : QPushButton(&parent), QtControl(button, button.get()), button_(std::move(button)) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QPushButton::clicked, this,
          [this, &delivery] { delivery.deliver(*button_, [&] { button_->userPressed(); }); });
}

void QtButton::followOwnProperties() {
  setText(plainCaption(button_->Caption()));
}

bool QtButton::showsAllText(const QFont& font) const {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
  return textFits(font, text(), box.size());
}

void QtButton::keyPressEvent(QKeyEvent* event) {
  // On some desktops Return presses a focused button. In this form it must not, so QWidget handles
  // the key.
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): skips QPushButton on purpose.
  if (isReturn) return QWidget::keyPressEvent(event);
  QPushButton::keyPressEvent(event);
}

}  // namespace veldrin
