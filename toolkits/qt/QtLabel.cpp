#include "toolkits/qt/QtLabel.h"

#include <QAccessible>
#include <utility>

#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

Qt::Alignment alignmentOf(const StaticText& text) {
  constexpr Qt::AlignmentFlag Horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  const std::int32_t alignment = text.TextAlign();
  const bool isKnown = alignment >= 0 && alignment <= 2;
  return Horizontal[isKnown ? alignment : 0] | Qt::AlignVCenter;
}

}  // namespace

QtLabel::QtLabel(Ref<StaticText> text, Delivery& /*delivery*/, QWidget& parent)
    : QLabel(&parent), QtControl(text, text.get()), text_(std::move(text)) {
  setTextFormat(Qt::PlainText);
}

void QtLabel::nameField(QtControl& field) {
  const RectControl& named = field.control();
  const std::int32_t middle = text_->Top() + text_->Height() / 2;
  const bool isBeside = text_->InitialParent() == named.InitialParent() &&
                        text_->Left() + text_->Width() <= named.Left() && middle >= named.Top() &&
                        middle < named.Top() + named.Height();
  if (!isBeside || buddy() != nullptr) return;
  setBuddy(&field.widget());
  followOwnProperties();
}

QString QtLabel::lines() const {
  return toQt(text_->Text()).replace('\r', '\n');
}

void QtLabel::addOwnColours(QPalette& palette) const {
  if (text_->TextColor() == Black) return;
  palette.setColor(QPalette::WindowText, toQt(text_->TextColor()));
}

void QtLabel::followOwnProperties() {
  setAlignment(alignmentOf(*text_));
  // In a label with a buddy, "&" would mark a shortcut letter.
  const QString shown = buddy() == nullptr ? lines() : lines().replace('&', "&&");
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

bool QtLabel::showsAllText(const QFont& font) const {
  return textFits(font, lines(), contentsRect().size());
}

}  // namespace veldrin
