#include "places/ZoneFile.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace veldrin {
namespace {

constexpr std::size_t HeaderSize = 44;
constexpr std::size_t VersionAt = 4;
constexpr std::size_t CountsAt = 20;

std::uint64_t count(std::string_view header, std::size_t index) {
  std::uint64_t value = 0;
  for (const char byte : header.substr(CountsAt + 4 * index, 4)) {
    value = value << 8U | static_cast<unsigned char>(byte);
  }
  return value;
}

/// The size of the block after a header, in bytes; `timeSize` is the bytes of each time. The sum
/// cannot overflow, because each count has 32 bits.
std::uint64_t blockSize(std::string_view header, std::uint64_t timeSize) {
  const std::array<std::uint64_t, 6> sizes = {1, 1, timeSize + 4, timeSize + 1, 6, 1};
  std::uint64_t sum = 0;
  for (std::size_t index = 0; index < sizes.size(); ++index) {
    sum += count(header, index) * sizes[index];
  }
  return sum;
}

/// Removes a header and its block from the bytes. Returns false if any are missing or not "TZif".
bool takeBlock(std::string_view& bytes, std::uint64_t timeSize) {
  if (bytes.size() < HeaderSize || !bytes.starts_with("TZif")) return false;
  const std::uint64_t size = HeaderSize + blockSize(bytes, timeSize);
  if (size > bytes.size()) return false;
  bytes.remove_prefix(static_cast<std::size_t>(size));
  return true;
}

}  // namespace

bool isWholeZoneFile(std::string_view bytes) {
  const bool isFirstVersion = bytes.size() > VersionAt && bytes[VersionAt] == '\0';
  return takeBlock(bytes, 4) && (isFirstVersion || takeBlock(bytes, 8));
}

}  // namespace veldrin
