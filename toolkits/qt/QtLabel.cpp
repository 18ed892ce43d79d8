#include "toolkits/qt/QtLabel.h"

#include <QAccessible>
#include <utility>

#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

Qt::Alignment alignmentOf(const StaticText& text) {
  constexpr Qt::AlignmentFlag Horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  const bool known = text.TextAlign >= 0 && text.TextAlign <= 2;
  return Horizontal[known ? text.TextAlign : 0] | Qt::AlignVCenter;
}

}  // namespace

QtLabel::QtLabel(Ref<StaticText> text, Delivery& /*delivery*/, QWidget& parent)
    : QLabel(&parent), text_(std::move(text)) {
  setTextFormat(Qt::PlainText);
  setAlignment(alignmentOf(*text_));
}

void QtLabel::follow() {
  const QString shown = toQt(text_->Text()).replace('\r', '\n');
  if (shown == this->text()) return;
  setText(shown);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent announcement(this, shown);
  QAccessible::updateAccessibility(&announcement);
#endif
}

bool QtLabel::fits(const QFont& font) const {
  return textFits(ownFont(font), this->text(), contentsRect().size());
}

void QtLabel::write(const QFont& font) {
  setFont(ownFont(font));
}

QFont QtLabel::ownFont(const QFont& font) const {
  QFont own = font;
  if (text_->TextSize > 0.0F) own.setPointSizeF(static_cast<double>(text_->TextSize));
  return own;
}

}  // namespace veldrin
