#pragma once

#include <QString>

#include "shell/objects/String.h"

namespace veldrin {

/// Conversions between framework texts and Qt texts.
inline QString toQt(const String& text) {
  const std::string_view bytes = text.view();
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

inline String fromQt(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return String(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

/// Converts a caption: "&" does not mark a mnemonic, and carriage returns become line feeds.
inline QString plainCaption(const String& text) {
  return toQt(text).replace('&', "&&").replace('\r', '\n');
}

}  // namespace veldrin
