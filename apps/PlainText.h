#pragma once

#include <string>
#include <string_view>

namespace veldrin {

/// Whether a text is well-formed UTF-8 (RFC 3629) and has no control character: none under U+0020
/// and none from U+007F to U+009F.
bool isPlainText(std::string_view text);

/// The text with a "?" for every character of ASCII that would break or colour a line.
std::string onOneLine(std::string text);

}  // namespace veldrin
