#pragma once

#include <QString>

#include "shell/objects/String.h"

namespace veldrin {

/// A text of the system as Qt has it, and back.
inline QString toQt(const String& text) {
  const std::string_view bytes = text.view();
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

inline String fromQt(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return String(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

/// A text that Qt draws as it stands: its "&" marks no mnemonic, its carriage returns break lines.
inline QString plainCaption(const String& text) {
  return toQt(text).replace('&', "&&").replace('\r', '\n');
}

}  // namespace veldrin
