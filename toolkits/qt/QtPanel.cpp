#include "toolkits/qt/QtPanel.h"

#include <QPainter>
#include <cmath>

namespace veldrin {
namespace {

/// The frames of some styles vanish on a dark desktop: this line is three times as bright as a dark
/// background, or as dark as a light one, whatever the desktop's colours are. It is mixed here, as
/// Qt would start threads of its own to mix it on the screen.
QColor lineColour(const QPalette& palette) {
  constexpr float Share = 0.45F;
  const QColor text = palette.color(QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Window);
  const auto mixed = [](float of, float with) { return of * Share + with * (1.0F - Share); };
  return QColor::fromRgbF(mixed(text.redF(), ground.redF()), mixed(text.greenF(), ground.greenF()),
                          mixed(text.blueF(), ground.blueF()));
}

}  // namespace

QtPanel::QtPanel(const Ref<Placard>& /*panel*/, Delivery& /*delivery*/, QWidget& parent)
    : QWidget(&parent) {}

void QtPanel::paintEvent(QPaintEvent* /*event*/) {
  // Whole pixels of the screen, or the four sides would differ where a pixel is scaled by a half.
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
