#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "shell/objects/String.h"

namespace veldrin {

// The binary format of constant strings. Nothing in Veldrin uses it; see docs/names.md. An image
// holds all records, then all text blocks in the same order, without gaps:
//
//   image  = record* block*                            equal numbers of both
//   record = count data allocation length encoding     five 32-bit little-endian words, 20 bytes
//   block  = prefix text terminator                    1 byte, `length` bytes, 4 zero bytes
//
// `count`, the reference count, is 1. `data` is the address of the block: the address of the image
// plus the block's offset. `allocation` is length + 5. `prefix` is the length, or 255 if the length
// is greater. `encoding` is 0x8000100 (UTF-8) or 0x600 (ASCII). The text "hi" in an image at
// address 0x1000:
//
//   01 00 00 00  14 10 00 00  07 00 00 00  02 00 00 00  00 01 00 08   02 68 69 00 00 00 00

/// The size of a record in an image, in bytes.
inline constexpr std::size_t StringRecordSize = 20;

/// The byte offset of a format error in an image, and its description.
struct StringImageError {
  std::size_t offset;
  std::string what;
};

/// The strings of an image, or the first error and no strings.
struct StringImageContents {
  std::vector<String> strings;
  std::optional<StringImageError> error;
};

/// The image of `strings` for loading at `address`. Raises `OutOfMemoryException` if an address or
/// a length exceeds 32 bits, `UnsupportedFormatException` for an unknown encoding.
std::vector<std::uint8_t> writeStringImage(std::span<const String> strings, std::uint32_t address);

/// Reads an image written for `address`. Any input is safe: every word is checked before use.
StringImageContents readStringImage(std::span<const std::uint8_t> image, std::uint32_t address);

}  // namespace veldrin
