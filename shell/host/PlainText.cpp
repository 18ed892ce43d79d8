#include "shell/host/PlainText.h"

#include <cstdint>

namespace veldrin {
namespace {

/// The UTF-8 forms of a character: mask and mark of the first byte, the number of following bytes,
/// the smallest code point.
constexpr struct {
  std::uint32_t mask, mark, followingCount, least;
} Forms[] = {
    {0x80, 0x00, 0, 0x0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

bool isPlain(std::uint32_t code) {
  const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool isSurrogate = code >= 0xD800 && code < 0xE000;
  return !isControl && !isSurrogate && code <= 0x10FFFF;
}

/// The first character of a text.
struct Head {
  std::size_t size;  ///< in bytes; 1 if the bytes have none of the forms
  bool isPlain;
};

Head headOf(std::string_view text) {
  const std::uint32_t first = static_cast<unsigned char>(text.front());
  for (const auto& form : Forms) {
    if ((first & form.mask) != form.mark) continue;
    const std::string_view following = text.substr(1, form.followingCount);
    if (following.size() < form.followingCount) break;
    std::uint32_t code = first & ~form.mask;
    for (const char byte : following) {
      if (!continuesCharacter(byte)) return {1, false};
      code = code << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return {form.followingCount + 1, code >= form.least && isPlain(code)};
  }
  return {1, false};
}

}  // namespace

bool isPlainText(std::string_view text) {
  while (!text.empty()) {
    const Head head = headOf(text);
    if (!head.isPlain) return false;
    text.remove_prefix(head.size);
  }
  return true;
}

std::string onOneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const Head head = headOf(text);
    line += head.isPlain ? text.substr(0, head.size) : "?";
    text.remove_prefix(head.size);
  }
  return line;
}

std::string shortened(std::string_view text, std::size_t most) {
  if (text.size() <= most) return std::string(text);
  while (most > 0 && continuesCharacter(text[most])) --most;
  return std::string(text.substr(0, most)) + "...";
}

}  // namespace veldrin
