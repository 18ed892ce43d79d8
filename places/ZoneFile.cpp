#include "places/ZoneFile.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace veldrin {
namespace {

constexpr std::size_t HeaderSize = 44;
constexpr std::size_t VersionAt = 4;
constexpr std::size_t CountsAt = 20;

constexpr std::size_t LeapSeconds = 2;
constexpr std::size_t Changes = 3;

std::uint64_t number(std::string_view bytes, std::size_t size) {
  std::uint64_t value = 0;
  for (const char byte : bytes.substr(0, size)) {
    value = value << 8U | static_cast<unsigned char>(byte);
  }
  return value;
}

bool beginsWithHeader(std::string_view bytes) {
  return bytes.size() >= HeaderSize && bytes.starts_with("TZif");
}

std::uint64_t count(std::string_view header, std::size_t place) {
  return number(header.substr(CountsAt + 4 * place), 4);
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

/// Takes a header and its block off the bytes; nothing if they are not all there.
std::optional<std::string_view> takeBlock(std::string_view& bytes, std::size_t timeSize) {
  if (!beginsWithHeader(bytes) || count(bytes, LeapSeconds) != 0) return std::nullopt;
  const std::uint64_t size = HeaderSize + blockSize(bytes, timeSize);
  if (size > bytes.size()) return std::nullopt;
  const std::string_view block = bytes.substr(0, static_cast<std::size_t>(size));
  bytes.remove_prefix(block.size());
  return block;
}

/// The last time of a block with its header.
std::int64_t lastChange(std::string_view block, std::size_t timeSize) {
  const std::uint64_t changes = count(block, Changes);
  if (changes == 0) return std::numeric_limits<std::int64_t>::min();
  const std::size_t at = HeaderSize + (static_cast<std::size_t>(changes) - 1) * timeSize;
  return static_cast<std::int64_t>(number(block.substr(at), timeSize));
}

}  // namespace

std::optional<ZoneFile> readZoneFile(std::string_view bytes) {
  const std::string_view all = bytes;
  const auto first = takeBlock(bytes, 4);
  if (!first) return std::nullopt;
  // Without a rule, nobody asks for the last change.
  if ((*first)[VersionAt] == '\0') return ZoneFile{std::string(*first), 0, std::nullopt};

  const auto second = takeBlock(bytes, 8);
  if (!second || !bytes.starts_with('\n')) return std::nullopt;
  const std::size_t end = bytes.find('\n', 1);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view rule = bytes.substr(1, end - 1);
  ZoneFile file{std::string(all.substr(0, first->size() + second->size())) + "\n\n",
                lastChange(*second, 8), PosixRule::read(rule)};
  if (!file.rule && !rule.empty()) return std::nullopt;
  return file;
}

}  // namespace veldrin
