#include "shell/objects/String.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>

#include "shell/objects/BlockPool.h"
#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

/// The minimum capacity of a concatenation, in bytes of text.
constexpr std::size_t MinimumCapacity = 32;

constexpr std::size_t MaximumAllocation = std::numeric_limits<std::int32_t>::max();

/// Allocates one memory block: the record, then the text block.
inline StringRecord* makeRecord(std::size_t allocation, std::uint32_t encoding) {
  if (allocation > MaximumAllocation) Raise<OutOfMemoryException>();
  auto* const memory = static_cast<char*>(allocateBlock(sizeof(StringRecord) + allocation));
  return std::construct_at(reinterpret_cast<StringRecord*>(memory),
                           StringRecord{1, static_cast<std::int32_t>(allocation), 0, encoding,
                                        memory + sizeof(StringRecord)});
}

}  // namespace

void freeStringRecord(StringRecord* string) noexcept {
  freeBlock(string, sizeof(StringRecord) + static_cast<std::size_t>(string->allocation));
}

String::String(std::string_view text, std::uint32_t encoding) {
  if (text.empty() && encoding == Encoding::UTF8) return;
  record_ = makeRecord(text.size() + StringRecord::Overhead, encoding);
  detail::append(*record_, text);
}

String detail::addToNew(const String& left, const String& right) {
  const std::string_view tail = right.view();
  if (tail.empty()) return left;
  if (left.isEmpty()) return right;
  const std::size_t length = left.view().size() + tail.size();
  // Doubles the capacity, so that repeated appending copies rarely.
  const std::size_t preferred = std::max(2 * length, MinimumCapacity) + StringRecord::Overhead;
  const std::size_t allocation =
      preferred <= MaximumAllocation ? preferred : length + StringRecord::Overhead;
  StringRecord* const sum =
      makeRecord(allocation, encodingOfSum(left.encoding(), right.encoding()));
  detail::append(*sum, left.view());
  detail::append(*sum, tail);
  return String::adopt(sum);
}

}  // namespace veldrin
