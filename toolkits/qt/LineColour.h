#pragma once

#include <QPalette>

namespace veldrin {

/// The colour of frame lines: 45% text colour on the background, for a contrast of about 3 to 1.
/// Opaque, because Qt would start threads to blend a transparent colour.
inline QColor lineColour(const QPalette& palette) {
  constexpr float Share = 0.45F;
  const QColor text = palette.color(QPalette::WindowText);
  const QColor background = palette.color(QPalette::Window);
  const auto mixed = [](float front, float back) { return front * Share + back * (1.0F - Share); };
  return QColor::fromRgbF(mixed(text.redF(), background.redF()),
                          mixed(text.greenF(), background.greenF()),
                          mixed(text.blueF(), background.blueF()));
}

/// Whether the desktop has light text on a dark background.
inline bool isDark(const QPalette& palette) {
  return palette.color(QPalette::WindowText).lightness() >
         palette.color(QPalette::Window).lightness();
}

}  // namespace veldrin
