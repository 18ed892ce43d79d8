#include "places/ZoneFile.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace veldrin {
namespace {

constexpr std::size_t HeaderSize = 44;
constexpr std::size_t VersionAt = 4;
constexpr std::size_t CountsAt = 20;

std::uint64_t count(std::string_view header, std::size_t place) {
  std::uint64_t value = 0;
  for (const char byte : header.substr(CountsAt + 4 * place, 4)) {
    value = value << 8U | static_cast<unsigned char>(byte);
  }
  return value;
}

/// The bytes of the block behind a header whose times have so many bytes. 64 bits hold the sum of
/// any counts.
std::uint64_t blockSize(std::string_view header, std::uint64_t timeSize) {
  const std::array<std::uint64_t, 6> sizes = {1, 1, timeSize + 4, timeSize + 1, 6, 1};
  std::uint64_t sum = 0;
  for (std::size_t place = 0; place < sizes.size(); ++place) {
    sum += count(header, place) * sizes[place];
  }
  return sum;
}

/// Takes a header and its block off the bytes; false if they are not all there.
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
