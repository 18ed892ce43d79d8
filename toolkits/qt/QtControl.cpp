#include "toolkits/qt/QtControl.h"

#include <QFontMetricsF>

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
    const Ref<RectControl> rect = CheckCast<RectControl>(control);
    QWidget& widget = made->widget();
    widget.setObjectName(toQt(rect->Name));
    widget.setGeometry(rect->Left, rect->Top, rect->Width, rect->Height);
    widget.setToolTip(toQt(rect->HelpTag));
    widget.setEnabled(rect->Enabled);
    widget.setVisible(rect->Visible);
    made->follow();
    return made;
  }
  return nullptr;
}

bool textFits(const QFont& font, const QString& text, const QSize& box) {
  const QFontMetricsF metrics(font);
  const QSizeF needed = metrics.size(0, text);
  // The blank lines above the tallest and below the deepest letter may go.
  const double slack = metrics.height() - metrics.tightBoundingRect("Åg").height();
  return needed.width() <= box.width() && needed.height() - slack <= box.height();
}

}  // namespace veldrin
