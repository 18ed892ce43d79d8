#include "shell/objects/TypeCodeGrammar.h"

#include <algorithm>

namespace veldrin {
namespace {

constexpr std::string_view Digits = "0123456789";

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         character == '?';
}

/// A position in a text; never passes the end.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) {}

  [[nodiscard]] bool atEnd() const { return position_ == text_.size(); }
  [[nodiscard]] std::string_view passed() const { return text_.substr(0, position_); }
  [[nodiscard]] std::string_view rest() const { return text_.substr(position_); }

  /// Skips `character` if it is next, and returns whether it was.
  bool take(char character) {
    const bool isNext = !atEnd() && text_[position_] == character;
    if (isNext) ++position_;
    return isNext;
  }

  /// Skips one character and returns it; returns a zero byte at the end.
  char takeAny() { return atEnd() ? '\0' : text_[position_++]; }

  std::string_view takeDigits() {
    const std::size_t start = position_;
    position_ = std::min(text_.find_first_not_of(Digits, position_), text_.size());
    return text_.substr(start, position_ - start);
  }

  /// Call after "<". Skips the name and its closing ">", returns the name; nullopt without ">".
  std::optional<std::string_view> takeName() {
    const std::size_t start = position_;
    for (std::size_t depth = 1; !atEnd();) {
      const char character = takeAny();
      if (character == '<') ++depth;
      if (character == '>' && --depth == 0) return text_.substr(start, position_ - 1 - start);
    }
    return std::nullopt;
  }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

std::optional<std::int32_t> readRank(std::string_view digits) {
  std::int32_t rank = 0;
  for (const char digit : digits) {
    rank = std::min(rank * 10 + (digit - '0'), MaximumRank + 1);
  }
  if (rank < 1 || rank > MaximumRank) return std::nullopt;
  return rank;
}

CodeKind kindOfNamed(char letter) {
  switch (letter) {
    case 'o':
      return CodeKind::Object;
    case 'i':
    case 'u':
      return CodeKind::Enumeration;
    case 't':
      return CodeKind::Structure;
    default:
      return CodeKind::Other;
  }
}

}  // namespace

std::optional<SignatureParts> splitSignature(std::string_view signature) {
  if (!signature.starts_with('%')) return std::nullopt;
  const std::size_t second = signature.find('%', 1);
  if (second == std::string_view::npos) return std::nullopt;
  const std::string_view parameters = signature.substr(second + 1);
  if (parameters.find('%') != std::string_view::npos) return std::nullopt;
  return SignatureParts{signature.substr(1, second - 1), parameters};
}

std::string_view takeParameter(std::string_view& list) {
  Cursor cursor(list);
  cursor.take('&');
  if (cursor.take('A')) cursor.takeDigits();
  cursor.takeAny();
  cursor.takeDigits();
  if (cursor.take('<')) cursor.takeName();
  list = cursor.rest();
  return cursor.passed();
}

std::optional<TypeCodeParts> readTypeCode(std::string_view code) {
  Cursor cursor(code);
  if (cursor.take('A')) {
    const auto rank = readRank(cursor.takeDigits());
    if (!rank || cursor.atEnd()) return std::nullopt;
    return TypeCodeParts{CodeKind::Array, *rank, cursor.rest()};
  }
  const char letter = cursor.takeAny();
  if (!isLetter(letter)) return std::nullopt;
  cursor.takeDigits();
  if (cursor.atEnd()) return TypeCodeParts{CodeKind::Other, 0, {}};
  if (!cursor.take('<')) return std::nullopt;
  const auto name = cursor.takeName();
  if (!name || !cursor.atEnd()) return std::nullopt;
  return TypeCodeParts{kindOfNamed(letter), 0, *name};
}

}  // namespace veldrin
