#pragma once

#include <string_view>

namespace veldrin {

/// Whether a text is well-formed UTF-8 (RFC 3629) and has no control character: none under U+0020
/// and none from U+007F to U+009F.
bool isPlainText(std::string_view text);

}  // namespace veldrin
