#include "toolkits/qt/QtControl.h"

#include <QApplication>
#include <QFontMetricsF>
#include <algorithm>

#include "toolkits/qt/LineColour.h"
#include "toolkits/qt/QtButton.h"
#include "toolkits/qt/QtChooser.h"
#include "toolkits/qt/QtField.h"
#include "toolkits/qt/QtLabel.h"
#include "toolkits/qt/QtPanel.h"
#include "toolkits/qt/QtText.h"
#include "toolkits/qt/QtTickBox.h"

namespace veldrin {
namespace {

using Maker = QtControl* (*)(const Ref<Control>&, Delivery&, QWidget&);

template <class Shown, class T>
QtControl* make(const Ref<Control>& control, Delivery& delivery, QWidget& parent) {
  return new Shown(CheckCast<T>(control), delivery, parent);
}

const struct {
  ClassRecord* (*controlClass)();
  Maker maker;
} Kinds[] = {
    {&Placard::__Lookup, make<QtPanel, Placard>},
    {&StaticText::__Lookup, make<QtLabel, StaticText>},
    {&PushButton::__Lookup, make<QtButton, PushButton>},
    {&PopupMenu::__Lookup, make<QtChooser, PopupMenu>},
    {&TextField::__Lookup, make<QtField, TextField>},
    {&CheckBox::__Lookup, make<QtTickBox, CheckBox>},
};

}  // namespace

QtControl* makeQtControl(const Ref<Control>& control, Delivery& delivery, QWidget& parent) {
  for (const auto& kind : Kinds) {
    if (!RuntimeObjectIsa(control.get(), kind.controlClass())) continue;
    QtControl* const made = kind.maker(control, delivery, parent);
    made->widget().setObjectName(toQt(control->Name));
    made->follow();
    return made;
  }
  return nullptr;
}

void QtControl::follow() {
  QWidget& shown = widget();
  const RectControl& rect = *control_;
  shown.setGeometry(rect.Left(), rect.Top(), rect.Width(), rect.Height());
  const QString help = toQt(rect.HelpTag());
  if (help != shown.toolTip()) shown.setToolTip(help);
  if (shown.focusPolicy() != Qt::NoFocus) {
    shown.setFocusPolicy(rect.TabStop() ? Qt::StrongFocus : Qt::ClickFocus);
  }
  followKind();
  colour();
  const bool isSized = sized_ || ownPoints() > 0.0;
  if (written_ && (isSized || styled(shared_) != styled_)) write(shared_);
  shown.setEnabled(rect.Enabled());
  shown.setVisible(rect.Visible());
}

void QtControl::leave(Delivery& delivery) {
  delivery.deliver(*control_, [this] { control_->userLeft(); });
}

double QtControl::ownPoints() {
  constexpr double PointsAnInch = 72.0;
  constexpr double MillimetersAnInch = 25.4;
  if (style_ == nullptr || style_->TextSize() <= 0.0F) return 0.0;
  const auto size = static_cast<double>(style_->TextSize());
  switch (style_->TextUnit()) {
    case FontUnits::Pixel:
      return size * PointsAnInch / widget().logicalDpiY();
    case FontUnits::Inch:
      return size * PointsAnInch;
    case FontUnits::Millimeter:
      return size * PointsAnInch / MillimetersAnInch;
    default:
      return size;
  }
}

QFont QtControl::styled(const QFont& font) const {
  QFont own = font;
  if (style_ == nullptr) return own;
  const String family = style_->TextFont();
  // "System" is the desktop's own, whatever that is called.
  if (!family.isEmpty() && !(family == "System")) own.setFamily(toQt(family));
  if (style_->Bold()) own.setBold(true);
  if (style_->Italic()) own.setItalic(true);
  if (style_->Underline()) own.setUnderline(true);
  return own;
}

bool QtControl::fits(const QFont& font) {
  return ownPoints() > 0.0 || showsWhole(styled(font));
}

void QtControl::write(const QFont& font) {
  constexpr double Step = 0.25;  // points
  constexpr double Largest = 200.0;
  written_ = true;
  shared_ = font;
  styled_ = styled(font);
  QFont own = styled_;
  double points = std::min(ownPoints(), Largest);
  sized_ = points > 0.0;
  if (sized_) {
    own.setPointSizeF(points);
    while (points > Step && !showsWhole(own)) own.setPointSizeF(points -= Step);
  }
  widget().setFont(own);
}

void QtControl::colour() {
  // Some styles darken the background to frame a field or a box, which nobody sees on a dark one.
  constexpr int AsTheyDarken = 140;  // percent
  const QPalette desktop = QApplication::palette();
  QPalette own;
  if (isFramed() && isDark(desktop)) {
    own.setColor(QPalette::Window, lineColour(desktop).lighter(AsTheyDarken));
  }
  colourKind(own);
  if (own == colours_ && own.resolveMask() == colours_.resolveMask()) return;
  colours_ = own;
  widget().setPalette(own);
}

bool textFits(const QFont& font, const QString& text, const QSize& box) {
  const QFontMetricsF metrics(font);
  const QSizeF needed = metrics.size(0, text);
  // The blank lines above the tallest and below the deepest letter may go.
  const double slack = metrics.height() - metrics.tightBoundingRect("Åg").height();
  return needed.width() <= box.width() && needed.height() - slack <= box.height();
}

}  // namespace veldrin
