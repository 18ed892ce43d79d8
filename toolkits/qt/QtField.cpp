#include "toolkits/qt/QtField.h"

#include <QApplication>
#include <QFocusEvent>
#include <QSignalBlocker>
#include <QStyleOptionFrame>
#include <limits>
#include <utility>

#include "toolkits/qt/Editing.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

Qt::Alignment alignmentOf(const TextField& field) {
  constexpr Qt::AlignmentFlag Horizontal[] = {Qt::AlignLeft, Qt::AlignLeft, Qt::AlignHCenter,
                                              Qt::AlignRight};
  const std::int32_t alignment = field.Alignment();
  const bool isKnown = alignment >= 0 && alignment <= 3;
  return Horizontal[isKnown ? alignment : 0] | Qt::AlignVCenter;
}

}  // namespace

QtField::QtField(Ref<TextField> field, Delivery& delivery, QWidget& parent)
    : QLineEdit(&parent),
      QtControl(field, field.get()),
      field_(std::move(field)),
      delivery_(delivery) {
  setFocusPolicy(Qt::StrongFocus);
  setMaxLength(std::numeric_limits<int>::max());  // the control limits the text
  connect(qApp, &QApplication::focusChanged, &context_,
          [this](const QWidget* /*before*/, const QWidget* now) { focusMoved(now); });
  connect(this, &QLineEdit::textChanged, this, [this](const QString& shown) {
    delivery_.runStoringException([&] {
      const String typed = fromQt(shown);
      if (!(typed == field_->Text())) field_->userTyped(typed);
    });
  });
}

void QtField::takeFirstFocus() {
  QtControl::takeFirstFocus();
  selectAll();
}

void QtField::followOwnProperties() {
  const QString wanted = toQt(field_->Text());
  // Blocks textChanged: the control keeps its text even if Qt changes the text for display.
  const QSignalBlocker blocker(this);
  setReadOnly(field_->ReadOnly());
  setFrame(field_->Border());
  setEchoMode(field_->Password() ? QLineEdit::Password : QLineEdit::Normal);
  setPlaceholderText(toQt(field_->CueText()));
  setAlignment(alignmentOf(*field_));
  // Setting the text clears the undo history, so set it only if it changes.
  if (wanted != text()) setText(wanted);
  if (!hasFocus()) setCursorPosition(0);
}

void QtField::addOwnColours(QPalette& palette) const {
  if (!(field_->TextColor() == Black)) palette.setColor(QPalette::Text, toQt(field_->TextColor()));
  if (!(field_->BackColor() == White)) palette.setColor(QPalette::Base, toQt(field_->BackColor()));
}

bool QtField::showsAllText(const QFont& font) const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  option.fontMetrics = QFontMetrics(font);
  const QRect box = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
  return textFits(font, {}, QSize(box.width(), box.height()));
}

void QtField::focusInEvent(QFocusEvent* event) {
  isFocusLent_ = false;
  QLineEdit::focusInEvent(event);
}

void QtField::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason) {
    // Keeps the selection for the menu: Qt clears the selection for `MenuBarFocusReason`.
    isFocusLent_ = true;
    QFocusEvent toPopup(QEvent::FocusOut, Qt::PopupFocusReason);
    QLineEdit::focusOutEvent(&toPopup);
    return;
  }
  QLineEdit::focusOutEvent(event);
}

void QtField::focusMoved(const QWidget* widget) {
  if (!isFocusLent_ || widget == this || isMenu(widget)) return;
  // After the menu, the focus went elsewhere: only now has the field lost it.
  isFocusLent_ = false;
  reportFocusLoss(delivery_);
}

void QtField::dropEvent(QDropEvent* event) {
  QLineEdit::dropEvent(event);
  // Takes the focus, so that losing it later processes the dropped text like typed text.
  setFocus(Qt::MouseFocusReason);
}

}  // namespace veldrin
