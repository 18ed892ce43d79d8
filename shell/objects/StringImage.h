#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "shell/objects/String.h"

namespace veldrin {

// The byte form of constant strings: an image is all records, one after the other, and behind them
// all text blocks in the same order, with nothing between any two.
//
//   image  = record* block*                            as many of the one as of the other
//   record = count data allocation length encoding     five 32-bit little-endian words, 20 bytes
//   block  = prefix text terminator                    1 byte, `length` bytes, 4 zero bytes
//
// `count` is 1, `data` the address of the block (that of the image plus the block's place in it),
// `allocation` is length + 5, `prefix` the length or 255 where it is more, `encoding` 0x8000100 or
// 0x600. Example, one text "hi" in an image that is to lie at 0x1000:
//
//   01 00 00 00  14 10 00 00  07 00 00 00  02 00 00 00  00 01 00 08   02 68 69 00 00 00 00

/// Bytes of a record in an image.
inline constexpr std::size_t StringRecordSize = 20;

/// Where an image breaks the format, as an offset from its first byte, and what is wrong there.
struct StringImageDamage {
  std::size_t offset;
  std::string what;
};

/// What a reader found: every string of the image, or none and the first damage.
struct StringImageContents {
  std::vector<String> strings;
  std::optional<StringImageDamage> damage;
};

/// The image of `strings` as it is to lie at `address`. Raises `OutOfMemoryException` where an
/// address or a length in it leaves 32 bits, `UnsupportedFormatException` for a string of another
/// encoding than the two.
std::vector<std::uint8_t> writeStringImage(std::span<const String> strings, std::uint32_t address);

/// Reads an image back. Every word is checked before anything is sized by it, and no read leaves
/// the image, whatever it holds.
StringImageContents readStringImage(std::span<const std::uint8_t> image, std::uint32_t address);

}  // namespace veldrin
