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
  [[maybe_unused]] const bool isNews = !this->text().isEmpty();
  setText(shown);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  if (isNews) {
    QAccessibleAnnouncementEvent announcement(this, shown);
    QAccessible::updateAccessibility(&announcement);
  }
#endif
}

bool QtLabel::fits(const QFont& font) const {
  return hasOwnSize() || textFits(font, this->text(), contentsRect().size());
}

void QtLabel::write(const QFont& font) {
  constexpr double Step = 0.25;  // points
  QFont own = font;
  if (hasOwnSize()) own.setPointSizeF(static_cast<double>(text_->TextSize));
  // No other control has to follow a text that is too large in its own size.
  while (hasOwnSize() && own.pointSizeF() > Step &&
         !textFits(own, this->text(), contentsRect().size())) {
    own.setPointSizeF(own.pointSizeF() - Step);
  }
  setFont(own);
}

}  // namespace veldrin
