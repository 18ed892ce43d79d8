#include "toolkits/qt/QtField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QStyleOptionFrame>
#include <limits>
#include <utility>

#include "toolkits/qt/Editing.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {

QtField::QtField(Ref<TextField> field, Delivery& delivery, QWidget& parent)
    : QLineEdit(&parent), field_(std::move(field)), delivery_(delivery) {
  setFocusPolicy(Qt::StrongFocus);
  setMaxLength(field_->LimitText > 0 ? field_->LimitText : std::numeric_limits<int>::max());
  setReadOnly(field_->ReadOnly);
  setFrame(field_->Border);
  if (field_->Password) setEchoMode(QLineEdit::Password);
  setPlaceholderText(toQt(field_->CueText));
  connect(qApp, &QApplication::focusChanged, &context_,
          [this](const QWidget* /*before*/, const QWidget* now) { focusMoved(now); });
  connect(this, &QLineEdit::textChanged, this, [this](const QString& shown) {
    delivery_.guard([&] {
      String typed = fromQt(shown);
      if (!(typed == field_->Text())) field_->userTyped(std::move(typed));
    });
  });
}

void QtField::follow() {
  // To set a text is to forget what could be undone, so the same text is not set again.
  const QString wanted = toQt(field_->Text());
  if (wanted != text()) setText(wanted);
  if (!hasFocus()) setCursorPosition(0);
}

bool QtField::fits(const QFont& font) const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
  return textFits(font, {}, QSize(box.width(), box.height()));
}

void QtField::focusInEvent(QFocusEvent* event) {
  lent_ = false;
  QLineEdit::focusInEvent(event);
}

void QtField::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason) {
    // The field is still the one being edited: a menu acts on its selection, which it would lose.
    lent_ = true;
    QFocusEvent toPopup(QEvent::FocusOut, Qt::PopupFocusReason);
    QLineEdit::focusOutEvent(&toPopup);
    return;
  }
  QLineEdit::focusOutEvent(event);
  delivery_.deliver(*field_, [this] { field_->userLeft(); });
}

void QtField::focusMoved(const QWidget* widget) {
  // A menu that keeps the focus, or hands it on to another, has taken it for good.
  if (!lent_ || widget == this || isMenu(widget)) return;
  lent_ = false;
  delivery_.deliver(*field_, [this] { field_->userLeft(); });
}

void QtField::dropEvent(QDropEvent* event) {
  QLineEdit::dropEvent(event);
  // What was dropped counts once the field is left, as what is typed does.
  setFocus(Qt::MouseFocusReason);
}

}  // namespace veldrin
