#include "toolkits/qt/QtPanel.h"

#include <QPainter>

namespace veldrin {

QtPanel::QtPanel(const Ref<Placard>& /*panel*/, Delivery& /*delivery*/, QWidget& parent)
    : QWidget(&parent) {}

void QtPanel::paintEvent(QPaintEvent* /*event*/) {
  // The frames of some styles vanish on a dark desktop: this line is three times as bright as a
  // dark background, or as dark as a light one, whatever the desktop's colours are.
  constexpr float Share = 0.45F;
  QColor line = palette().color(QPalette::WindowText);
  line.setAlphaF(Share);
  QPainter painter(this);
  painter.setPen(QPen(line, 1.0));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace veldrin
