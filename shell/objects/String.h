#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "shell/objects/FixedString.h"

namespace veldrin {

/// The encoding of a string.
namespace Encoding {
inline constexpr std::uint32_t UTF8 = 0x8000100;
inline constexpr std::uint32_t ASCII = 0x600;
}  // namespace Encoding

/// A string in memory: the fields of the 20-byte record of `StringImage.h`, with a native pointer.
/// The text block is `lengthPrefix`, the text, four zero bytes.
struct StringRecord {
  static constexpr std::int32_t TerminatorSize = 4;             ///< in bytes
  static constexpr std::int32_t Overhead = 1 + TerminatorSize;  ///< with the prefix byte

  std::int32_t count;       ///< references; a constant has one extra, so it is never freed
  std::int32_t allocation;  ///< bytes of the text block
  std::int32_t length;      ///< bytes of text
  std::uint32_t encoding;
  char* data;  ///< the text block

  [[nodiscard]] std::string_view view() const {
    return {data + 1, static_cast<std::size_t>(length)};
  }
};

/// The prefix byte of a text block: the length, at most 255.
constexpr std::uint8_t lengthPrefix(std::size_t length) {
  return static_cast<std::uint8_t>(std::min<std::size_t>(length, 255));
}

/// Increments the count. Nil is allowed.
inline void RuntimeLockString(StringRecord* string) noexcept {
  if (string != nullptr) ++string->count;
}

/// Frees a run-time string; only `RuntimeUnlockString` calls it.
void freeStringRecord(StringRecord* string) noexcept;

/// Decrements the count and frees the string at 0, which a constant never reaches. Nil is allowed.
inline void RuntimeUnlockString(StringRecord* string) noexcept {
  if (string != nullptr && --string->count == 0) freeStringRecord(string);
}

/// Locks `added`, then unlocks `removed`, so self-assignment is safe.
inline void RuntimeLockUnlockStrings(StringRecord* added, StringRecord* removed) noexcept {
  RuntimeLockString(added);
  RuntimeUnlockString(removed);
}

/// Refers to the record of a literal, without counting. Usable in `constexpr` tables; converts to
/// `String`.
class StringConstant {
 public:
  /// `record` must never be freed.
  constexpr explicit StringConstant(StringRecord* record) : record_(record) {}
  /// Never nil.
  [[nodiscard]] constexpr StringRecord* record() const { return record_; }
  [[nodiscard]] std::string_view view() const { return record_->view(); }

 private:
  StringRecord* record_;
};

/// A counted, immutable text of at most 2^31 - 6 bytes, zero bytes allowed. A nil string equals the
/// empty text.
class String {
 public:
  String() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is a string.
  String(StringConstant constant) noexcept : record_(constant.record()) {
    RuntimeLockString(record_);
  }
  /// Copies `text`; an empty UTF-8 text becomes nil. Raises `OutOfMemoryException` for more than
  /// 2^31 - 6 bytes.
  explicit String(std::string_view text, std::uint32_t encoding = Encoding::UTF8);

  String(const String& other) noexcept : record_(other.record_) { RuntimeLockString(record_); }
  String(String&& other) noexcept : record_(std::exchange(other.record_, nullptr)) {}
  String& operator=(const String& other) noexcept {
    RuntimeLockUnlockStrings(other.record_, record_);
    record_ = other.record_;
    return *this;
  }
  String& operator=(String&& other) noexcept {
    std::swap(record_, other.record_);
    return *this;
  }
  ~String() { RuntimeUnlockString(record_); }

  /// Valid while a `String` holds the record.
  [[nodiscard]] std::string_view view() const {
    return record_ == nullptr ? std::string_view() : record_->view();
  }
  [[nodiscard]] bool isEmpty() const { return record_ == nullptr || record_->length == 0; }
  /// UTF-8 for nil.
  [[nodiscard]] std::uint32_t encoding() const {
    return record_ == nullptr ? Encoding::UTF8 : record_->encoding;
  }
  /// The record, uncounted, or nil.
  [[nodiscard]] StringRecord* record() const { return record_; }

  friend bool operator==(const String& left, const String& right) {
    return left.record_ == right.record_ || left.view() == right.view();
  }
  friend bool operator==(const String& left, std::string_view right) {
    return left.view() == right;
  }

  /// Takes over the count of a new record, without adding one.
  [[nodiscard]] static String adopt(StringRecord* record) noexcept {
    String taken;
    taken.record_ = record;
    return taken;
  }

 private:
  StringRecord* record_ = nullptr;
};

namespace detail {

/// Appends in place; `allocation` must suffice.
inline void append(StringRecord& record, std::string_view text) {
  char* const end = record.data + 1 + record.length;
  // Most appended texts have one or two characters; a loop is faster than calling memcpy.
  if (text.size() <= 2) {
    for (std::size_t index = 0; index < text.size(); ++index) end[index] = text[index];
  } else {
    std::memcpy(end, text.data(), text.size());
  }
  std::memset(end + text.size(), 0, StringRecord::TerminatorSize);
  record.length += static_cast<std::int32_t>(text.size());
  record.data[0] = static_cast<char>(lengthPrefix(static_cast<std::size_t>(record.length)));
}

/// The encoding of a concatenation: `left` if both are equal, else UTF-8.
inline std::uint32_t encodingOfSum(std::uint32_t left, std::uint32_t right) {
  return left == right ? left : Encoding::UTF8;
}

/// A new string with both texts. If one operand is empty, returns the other.
String addToNew(const String& left, const String& right);

}  // namespace detail

/// Concatenates. If one operand is empty, returns the other. Otherwise the result has the encoding
/// of both operands, or UTF-8 if they differ. Raises `OutOfMemoryException` if the result is too
/// long for a string.
inline String RuntimeAddString(const String& left, const String& right) {
  return detail::addToNew(left, right);
}

/// The same for a temporary left operand. Appends in place if no other string shares its record and
/// the record has room. Both operands may be the same variable.
inline String RuntimeAddString(String&& left, const String& right) {
  StringRecord* const record = left.record();
  const std::string_view tail = right.view();
  // A constant held by a `String` has a count of at least 2; only a run-time string can have 1.
  const bool isUnshared = record != nullptr && record->count == 1 && &left != &right;
  if (!isUnshared || record->length == 0 || tail.empty() ||
      record->length + static_cast<std::int64_t>(tail.size()) + StringRecord::Overhead >
          record->allocation) {
    return detail::addToNew(left, right);
  }
  detail::append(*record, tail);
  record->encoding = detail::encodingOfSum(record->encoding, right.encoding());
  return std::move(left);
}

inline String operator+(const String& left, const String& right) {
  return RuntimeAddString(left, right);
}
inline String operator+(String&& left, const String& right) {
  return RuntimeAddString(std::move(left), right);
}

namespace detail {
template <FixedString Text>
constexpr auto textBlock() {
  FixedString<Text.size() + StringRecord::Overhead> block;
  block.characters[0] = static_cast<char>(lengthPrefix(Text.size()));
  std::copy_n(Text.characters.begin(), Text.size(), block.characters.begin() + 1);
  return block.characters;
}
}  // namespace detail

/// The record and text block of a constant, writable because the count changes. Equal constants
/// share one record.
template <FixedString Text, std::uint32_t EncodingWord>
struct ConstantString {
  static inline constinit auto block = detail::textBlock<Text>();
  static inline constinit StringRecord record{1, static_cast<std::int32_t>(block.size()),
                                              static_cast<std::int32_t>(Text.size()), EncodingWord,
                                              block.data()};
};

/// The constant string of a compile-time text.
template <FixedString Text, std::uint32_t EncodingWord = Encoding::UTF8>
inline constexpr StringConstant ConstantText{&ConstantString<Text, EncodingWord>::record};

inline namespace literals {
/// A literal, as in `"Sunrise = "_s`.
template <FixedString Text>
constexpr StringConstant operator""_s() {
  return ConstantText<Text>;
}

/// A literal with the encoding ASCII, as in `"(  )"_ascii`.
template <FixedString Text>
constexpr StringConstant operator""_ascii() {
  return ConstantText<Text, Encoding::ASCII>;
}
}  // namespace literals

}  // namespace veldrin
