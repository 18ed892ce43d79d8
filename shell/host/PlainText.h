#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veldrin {

/// Whether a byte is a continuation byte of UTF-8.
constexpr bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Whether a text is well-formed UTF-8 (RFC 3629) without control characters: none below U+0020 and
/// none from U+007F to U+009F.
bool isPlainText(std::string_view text);

/// The text as one line for a terminal. Each control character, and each byte or sequence that is
/// not UTF-8, becomes "?".
std::string onOneLine(std::string_view text);

/// Cuts a text of more than `most` bytes to at most `most` and adds "...". Keeps characters whole.
std::string shortened(std::string_view text, std::size_t most);

}  // namespace veldrin
