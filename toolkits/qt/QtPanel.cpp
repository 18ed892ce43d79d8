#include "toolkits/qt/QtPanel.h"

#include <QPainter>
#include <cmath>

#include "toolkits/qt/LineColour.h"

namespace veldrin {

QtPanel::QtPanel(const Ref<Placard>& panel, Delivery& /*delivery*/, QWidget& parent)
    : QWidget(&parent), QtControl(panel, nullptr) {}

void QtPanel::paintEvent(QPaintEvent* /*event*/) {
  // A line is whole device pixels wide, so that all four sides look equal at fractional scaling.
  const double ratio = devicePixelRatioF();
  const double lineWidth = std::floor(ratio) / ratio;
  const QColor colour = lineColour(palette());
  const double right = width() - lineWidth;
  const double bottom = height() - lineWidth;
  QPainter painter(this);
  for (const QRectF& side :
       {QRectF(0.0, 0.0, width(), lineWidth), QRectF(0.0, bottom, width(), lineWidth),
        QRectF(0.0, 0.0, lineWidth, height()), QRectF(right, 0.0, lineWidth, height())}) {
    painter.fillRect(side, colour);
  }
}

}  // namespace veldrin
