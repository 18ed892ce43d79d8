#include "shell/objects/StringImage.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

constexpr std::size_t CountOffset = 0;
constexpr std::size_t DataOffset = 4;
constexpr std::size_t AllocationOffset = 8;
constexpr std::size_t LengthOffset = 12;
constexpr std::size_t EncodingOffset = 16;

bool isKnownEncoding(std::uint32_t encoding) {
  return encoding == Encoding::UTF8 || encoding == Encoding::ASCII;
}

void putWord(std::vector<std::uint8_t>& image, std::size_t value) {
  if (value > std::numeric_limits<std::uint32_t>::max()) Raise<OutOfMemoryException>();
  for (unsigned shift = 0; shift < 32; shift += 8) {
    image.push_back(static_cast<std::uint8_t>(value >> shift));
  }
}

/// Reads an image and throws `StringImageError` at the first error; only `readStringImage` catches
/// it.
class Reader {
 public:
  Reader(std::span<const std::uint8_t> image, std::uint32_t address)
      : image_(image), address_(address) {}

  std::vector<String> strings() {
    if (image_.empty()) return {};
    const std::size_t count = recordCount();
    std::vector<String> result;
    result.reserve(count);
    block_ = count * StringRecordSize;
    for (std::size_t index = 0; index < count; ++index) {
      result.push_back(string(index * StringRecordSize));
    }
    require(block_ == image_.size(), block_, "bytes after the last text block");
    return result;
  }

 private:
  static void require(bool isValid, std::size_t offset, const char* what) {
    if (!isValid) throw StringImageError{offset, what};
  }

  [[nodiscard]] std::uint32_t word(std::size_t offset) const {
    require(offset + 4 <= image_.size(), std::min(offset, image_.size()),
            "the image ends inside a record");
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;) value = value << 8 | image_[offset + byte];
    return value;
  }

  /// The first record holds the address of the first text block, which follows the last record.
  [[nodiscard]] std::size_t recordCount() const {
    const std::uint32_t recordBytes = word(DataOffset) - address_;
    require(image_.size() <= std::numeric_limits<std::uint32_t>::max() - address_, DataOffset,
            "addresses beyond 32 bits");
    require(recordBytes != 0 && recordBytes % StringRecordSize == 0 && recordBytes <= image_.size(),
            DataOffset, "the first text block does not follow a whole number of records");
    return recordBytes / StringRecordSize;
  }

  /// Reads the record at the offset `record` and its text block, which must start at `block_`.
  String string(std::size_t record) {
    require(word(record + CountOffset) == 1, record + CountOffset, "a count other than 1");
    require(word(record + DataOffset) - address_ == block_, record + DataOffset,
            "a text block that does not follow the previous one");
    const std::size_t length = word(record + LengthOffset);
    require(image_.size() - block_ >= StringRecord::Overhead &&
                length <= image_.size() - block_ - StringRecord::Overhead,
            record + LengthOffset, "a length beyond the end of the image");
    require(word(record + AllocationOffset) == length + StringRecord::Overhead,
            record + AllocationOffset, "an allocation other than the length plus 5");
    const std::uint32_t encoding = word(record + EncodingOffset);
    require(isKnownEncoding(encoding), record + EncodingOffset, "an unknown encoding");
    require(image_[block_] == lengthPrefix(length), block_, "a prefix other than the length");
    const std::size_t textOffset = block_ + 1;
    for (std::size_t zero = textOffset + length;
         zero < textOffset + length + StringRecord::TerminatorSize; ++zero) {
      require(image_[zero] == 0, zero, "a terminator that is not zero");
    }
    block_ += length + StringRecord::Overhead;
    return String({reinterpret_cast<const char*>(image_.data()) + textOffset, length}, encoding);
  }

  std::span<const std::uint8_t> image_;
  std::uint32_t address_;
  std::size_t block_ = 0;  ///< offset of the next text block
};

}  // namespace

std::vector<std::uint8_t> writeStringImage(std::span<const String> strings, std::uint32_t address) {
  std::vector<std::uint8_t> image;
  std::size_t blockAddress = address + strings.size() * StringRecordSize;
  for (const String& string : strings) {
    if (!isKnownEncoding(string.encoding())) Raise<UnsupportedFormatException>();
    const std::size_t length = string.view().size();
    putWord(image, 1);
    putWord(image, blockAddress);
    putWord(image, length + StringRecord::Overhead);
    putWord(image, length);
    putWord(image, string.encoding());
    blockAddress += length + StringRecord::Overhead;
  }
  if (blockAddress > std::numeric_limits<std::uint32_t>::max()) Raise<OutOfMemoryException>();
  for (const String& string : strings) {
    const std::string_view text = string.view();
    image.push_back(lengthPrefix(text.size()));
    image.insert(image.end(), text.begin(), text.end());
    image.insert(image.end(), StringRecord::TerminatorSize, 0);
  }
  return image;
}

StringImageContents readStringImage(std::span<const std::uint8_t> image, std::uint32_t address) {
  try {
    return {Reader(image, address).strings(), std::nullopt};
  } catch (StringImageError& error) {
    return {{}, std::move(error)};
  }
}

}  // namespace veldrin
