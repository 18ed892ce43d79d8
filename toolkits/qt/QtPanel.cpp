#include "toolkits/qt/QtPanel.h"

#include <QPainter>
#include <cmath>

#include "toolkits/qt/LineColour.h"

namespace veldrin {

QtPanel::QtPanel(const Ref<Placard>& panel, Delivery& /*delivery*/, QWidget& parent)
    : QWidget(&parent), QtControl(panel, nullptr) {}

void QtPanel::paintEvent(QPaintEvent* /*event*/) {
  // Whole device pixels, so that all four sides look equal at fractional scaling.
  const double ratio = devicePixelRatioF();
  const double line = std::floor(ratio) / ratio;
  const QColor colour = lineColour(palette());
  const double right = width() - line;
  const double bottom = height() - line;
  QPainter painter(this);
  for (const QRectF& side :
       {QRectF(0.0, 0.0, width(), line), QRectF(0.0, bottom, width(), line),
        QRectF(0.0, 0.0, line, height()), QRectF(right, 0.0, line, height())}) {
    painter.fillRect(side, colour);
  }
}

}  // namespace veldrin
