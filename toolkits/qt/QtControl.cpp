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
  followOwnProperties();
  applyColours();
  const bool hasOwnSize = hasOwnSize_ || ownSizeInPoints() > 0.0;
  if (hasFont_ && (hasOwnSize || styledFont(windowFont_) != styledFont_)) applyFont(windowFont_);
  shown.setEnabled(rect.Enabled());
  shown.setVisible(rect.Visible());
}

void QtControl::reportFocusLoss(Delivery& delivery) {
  delivery.deliver(*control_, [this] { control_->userLeft(); });
}

double QtControl::ownSizeInPoints() {
  constexpr double PointsPerInch = 72.0;
  constexpr double MillimetersPerInch = 25.4;
  if (style_ == nullptr || style_->TextSize() <= 0.0F) return 0.0;
  const auto size = static_cast<double>(style_->TextSize());
  switch (style_->TextUnit()) {
    case FontUnits::Pixel:
      return size * PointsPerInch / widget().logicalDpiY();
    case FontUnits::Inch:
      return size * PointsPerInch;
    case FontUnits::Millimeter:
      return size * PointsPerInch / MillimetersPerInch;
    default:
      return size;
  }
}

QFont QtControl::styledFont(const QFont& font) const {
  QFont own = font;
  if (style_ == nullptr) return own;
  const String family = style_->TextFont();
  // "System" means the font of the desktop.
  if (!family.isEmpty() && !(family == "System")) own.setFamily(toQt(family));
  if (style_->Bold()) own.setBold(true);
  if (style_->Italic()) own.setItalic(true);
  if (style_->Underline()) own.setUnderline(true);
  return own;
}

bool QtControl::fits(const QFont& font) {
  return ownSizeInPoints() > 0.0 || showsAllText(styledFont(font));
}

void QtControl::applyFont(const QFont& font) {
  constexpr double Step = 0.25;  // points
  constexpr double Largest = 200.0;
  hasFont_ = true;
  windowFont_ = font;
  styledFont_ = styledFont(font);
  QFont own = styledFont_;
  double points = std::min(ownSizeInPoints(), Largest);
  hasOwnSize_ = points > 0.0;
  if (hasOwnSize_) {
    own.setPointSizeF(points);
    while (points > Step && !showsAllText(own)) own.setPointSizeF(points -= Step);
  }
  widget().setFont(own);
}

void QtControl::applyColours() {
  // Some styles draw frames in a darkened background colour, which is invisible on a dark desktop.
  // There, set a background colour whose darkened form is `lineColour`.
  constexpr int DarkeningPercent = 140;
  const QPalette desktop = QApplication::palette();
  QPalette own;
  if (isFramed() && isDark(desktop)) {
    own.setColor(QPalette::Window, lineColour(desktop).lighter(DarkeningPercent));
  }
  addOwnColours(own);
  if (own == colours_ && own.resolveMask() == colours_.resolveMask()) return;
  colours_ = own;
  widget().setPalette(own);
}

bool textFits(const QFont& font, const QString& text, const QSize& box) {
  const QFontMetricsF metrics(font);
  const QSizeF needed = metrics.size(0, text);
  // The empty space above the tallest and below the lowest letter may be cut off.
  const double slack = metrics.height() - metrics.tightBoundingRect("Åg").height();
  return needed.width() <= box.width() && needed.height() - slack <= box.height();
}

}  // namespace veldrin
