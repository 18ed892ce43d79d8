#include "apps/PlainText.h"

#include <cstddef>
#include <cstdint>

namespace veldrin {
namespace {

/// The forms of a character: which first bytes have it, how many bytes follow, and the least code
/// that is not written shorter.
constexpr struct {
  std::uint32_t mask, mark, following, least;
} Forms[] = {
    {0x80, 0x00, 0, 0x0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

constexpr std::uint32_t NoCharacter = 0xFFFFFFFF;

/// Takes the first character off the text.
std::uint32_t takeCharacter(std::string_view& text) {
  const std::uint32_t first = static_cast<unsigned char>(text.front());
  for (const auto& form : Forms) {
    if ((first & form.mask) != form.mark) continue;
    if (text.size() <= form.following) return NoCharacter;
    std::uint32_t code = first & ~form.mask;
    for (std::size_t place = 1; place <= form.following; ++place) {
      const auto byte = static_cast<unsigned char>(text[place]);
      if ((byte & 0xC0U) != 0x80U) return NoCharacter;
      code = code << 6U | (byte & 0x3FU);
    }
    text.remove_prefix(form.following + 1);
    return code < form.least ? NoCharacter : code;
  }
  return NoCharacter;
}

bool isPlain(std::uint32_t code) {
  const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool isSurrogate = code >= 0xD800 && code < 0xE000;
  return !isControl && !isSurrogate && code <= 0x10FFFF;
}

}  // namespace

bool isPlainText(std::string_view text) {
  while (!text.empty()) {
    if (!isPlain(takeCharacter(text))) return false;
  }
  return true;
}

}  // namespace veldrin
