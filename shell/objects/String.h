#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "shell/objects/FixedString.h"

namespace veldrin {

/// The published encoding words that a string of this system can carry.
namespace Encoding {
inline constexpr std::uint32_t UTF8 = 0x8000100;
inline constexpr std::uint32_t ASCII = 0x600;
}  // namespace Encoding

/// What a string is in memory: the fields of the 20-byte constant record, with an address as wide
/// as the machine's. The text block that `data` points at is the same to the byte: a length prefix
/// that saturates at 255, the text, four zero bytes. `length` alone is the true length.
struct StringRecord {
  static constexpr std::int32_t Overhead = 5;  ///< prefix and terminator, in bytes

  std::int32_t count;       ///< references; a constant's own existence is one of them
  std::int32_t allocation;  ///< bytes of the text block
  std::int32_t length;      ///< bytes of text
  std::uint32_t encoding;
  char* data;  ///< the text block

  [[nodiscard]] std::string_view view() const {
    return {data + 1, static_cast<std::size_t>(length)};
  }
};

/// The prefix byte of a text block: the length, or 255 for 255 and more.
constexpr std::uint8_t lengthPrefix(std::size_t length) {
  return static_cast<std::uint8_t>(std::min<std::size_t>(length, 255));
}

/// Adds a count. Nil is allowed.
inline void RuntimeLockString(StringRecord* string) noexcept {
  if (string != nullptr) ++string->count;
}

/// Gives the memory of a run-time string back; only `RuntimeUnlockString` calls it.
void freeStringRecord(StringRecord* string) noexcept;

/// Takes a count; at 0 the string is freed. A constant never gets there, since nobody gives up the
/// count that stands for the record itself. Nil is allowed.
inline void RuntimeUnlockString(StringRecord* string) noexcept {
  if (string != nullptr && --string->count == 0) freeStringRecord(string);
}

/// One assignment: locks the new value first, so that assigning a variable to itself is safe.
inline void RuntimeLockUnlockStrings(StringRecord* added, StringRecord* removed) noexcept {
  RuntimeLockString(added);
  RuntimeUnlockString(removed);
}

/// Refers to a literal's record in the program's data. It holds no count, costs nothing at start
/// and can stand in a `constexpr` table; where a `String` is wanted it becomes one.
class StringConstant {
 public:
  /// For a record that is never given up.
  constexpr explicit StringConstant(StringRecord* record) : record_(record) {}
  /// The record that a `String` of it holds. Never nil.
  [[nodiscard]] constexpr StringRecord* record() const { return record_; }
  /// The bytes, which last as long as the program.
  [[nodiscard]] std::string_view view() const { return record_->view(); }

 private:
  StringRecord* record_;
};

/// A counted, immutable text of at most 2^31 - 6 bytes, zero bytes allowed. Nil is the empty
/// string, and the two compare equal.
class String {
 public:
  String() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is a string.
  String(StringConstant constant) noexcept : record_(constant.record()) {
    RuntimeLockString(record_);
  }
  /// A new run-time string with a copy of `text`; nil for an empty one of UTF-8. Raises
  /// `OutOfMemoryException` for more than 2^31 - 6 bytes.
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

  /// The bytes, which last as long as a string holds them.
  [[nodiscard]] std::string_view view() const {
    return record_ == nullptr ? std::string_view() : record_->view();
  }
  /// Whether it has no bytes, whatever its encoding.
  [[nodiscard]] bool isEmpty() const { return record_ == nullptr || record_->length == 0; }
  /// The encoding word; that of UTF-8 for nil.
  [[nodiscard]] std::uint32_t encoding() const {
    return record_ == nullptr ? Encoding::UTF8 : record_->encoding;
  }
  /// The record itself, uncounted, or nil.
  [[nodiscard]] StringRecord* record() const { return record_; }

  friend bool operator==(const String& left, const String& right) {
    return left.record_ == right.record_ || left.view() == right.view();
  }
  friend bool operator==(const String& left, std::string_view right) {
    return left.view() == right;
  }

  /// Takes over the one count of a new record.
  [[nodiscard]] static String adopt(StringRecord* record) noexcept {
    String taken;
    taken.record_ = record;
    return taken;
  }

 private:
  StringRecord* record_ = nullptr;
};

namespace detail {

/// Puts `text` behind the text that the record holds, for which it must have the room.
inline void append(StringRecord& record, std::string_view text) {
  char* const end = record.data + 1 + record.length;
  // Most of what is joined is a character or two, for which a call costs more than the copy.
  if (text.size() <= 2) {
    for (std::size_t place = 0; place < text.size(); ++place) end[place] = text[place];
  } else {
    std::memcpy(end, text.data(), text.size());
  }
  std::memset(end + text.size(), 0, StringRecord::Overhead - 1);
  record.length += static_cast<std::int32_t>(text.size());
  record.data[0] = static_cast<char>(lengthPrefix(static_cast<std::size_t>(record.length)));
}

/// The encoding word of a sum of two texts that are not empty: ASCII where both are, else UTF-8.
inline std::uint32_t encodingOfSum(std::uint32_t left, std::uint32_t right) {
  return left == right ? left : Encoding::UTF8;
}

/// The concatenation as a new string, or as the one operand that is not empty.
String addToNew(const String& left, const String& right);

}  // namespace detail

/// Concatenation, the one way in which texts are joined. The sum of a text and an empty one is the
/// text; any other has the encoding of both, or UTF-8 where they differ. Raises
/// `OutOfMemoryException` where the sum is longer than a string can be.
inline String RuntimeAddString(const String& left, const String& right) {
  return detail::addToNew(left, right);
}

/// The same for a left operand that is given up. Where nobody else holds it, it is grown in place,
/// which no holder of a string can tell from a new one. The right one may be the very same
/// variable.
inline String RuntimeAddString(String&& left, const String& right) {
  StringRecord* const record = left.record();
  const std::string_view tail = right.view();
  // A run-time string that only `left` holds; a constant that anybody uses has a count of 2.
  const bool unshared = record != nullptr && record->count == 1 && &left != &right;
  if (!unshared || record->length == 0 || tail.empty() ||
      record->length + static_cast<std::int64_t>(tail.size()) + StringRecord::Overhead >
          record->allocation) {
    return detail::addToNew(left, right);
  }
  detail::append(*record, tail);
  record->encoding = detail::encodingOfSum(record->encoding, right.encoding());
  return std::move(left);
}

/// `RuntimeAddString` as an operator, for sums that read like the text they make.
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

/// The record and the text block of one constant, in writable data because the count is changed in
/// place. The same text and encoding is the same record everywhere in the program.
template <FixedString Text, std::uint32_t EncodingWord>
struct ConstantString {
  static inline constinit auto block = detail::textBlock<Text>();
  static inline constinit StringRecord record{1, static_cast<std::int32_t>(block.size()),
                                              static_cast<std::int32_t>(Text.size()), EncodingWord,
                                              block.data()};
};

/// The constant string of a text that the compiler knows.
template <FixedString Text, std::uint32_t EncodingWord = Encoding::UTF8>
inline constexpr StringConstant ConstantText{&ConstantString<Text, EncodingWord>::record};

inline namespace literals {
/// A literal, as in `"Sunrise = "_s`.
template <FixedString Text>
constexpr StringConstant operator""_s() {
  return ConstantText<Text>;
}

/// A literal that carries the encoding word of plain ASCII, as in `"(  )"_ascii`.
template <FixedString Text>
constexpr StringConstant operator""_ascii() {
  return ConstantText<Text, Encoding::ASCII>;
}
}  // namespace literals

}  // namespace veldrin
