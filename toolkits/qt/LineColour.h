#pragma once

#include <QPalette>

namespace veldrin {

/// The colour of a line that frames something: three times as bright as a dark background, or as
/// dark as a light one, whatever the desktop's colours are. It is opaque, as Qt would start threads
/// of its own to mix a transparent one on the screen.
inline QColor lineColour(const QPalette& palette) {
  constexpr float Share = 0.45F;
  const QColor text = palette.color(QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Window);
  const auto mixed = [](float of, float with) { return of * Share + with * (1.0F - Share); };
  return QColor::fromRgbF(mixed(text.redF(), ground.redF()), mixed(text.greenF(), ground.greenF()),
                          mixed(text.blueF(), ground.blueF()));
}

/// Whether the desktop writes in a bright colour on a dark one.
inline bool isDark(const QPalette& palette) {
  return palette.color(QPalette::WindowText).lightness() >
         palette.color(QPalette::Window).lightness();
}

}  // namespace veldrin
