#include "places/Fold.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "places/PlaceFault.h"

namespace veldrin {
namespace {

using CodePoint = utf8proc_int32_t;

/// Lower-case letters that Unicode does not decompose, sorted, and their plain forms.
constexpr std::array<std::pair<CodePoint, std::string_view>, 24> PlainForms{{
    {U'æ', "ae"}, {U'ð', "d"}, {U'ø', "o"}, {U'þ', "th"}, {U'đ', "d"}, {U'ħ', "h"},
    {U'ı', "i"},  {U'ł', "l"}, {U'ŋ', "n"}, {U'œ', "oe"}, {U'ŧ', "t"}, {U'ƀ', "b"},
    {U'ƙ', "k"},  {U'ƣ', "g"}, {U'ƴ', "y"}, {U'ƶ', "z"},  {U'ǝ', "e"}, {U'ɓ', "b"},
    {U'ɖ', "d"},  {U'ɗ', "d"}, {U'ə', "e"}, {U'ɛ', "e"},  {U'ɣ', "g"}, {U'ɵ', "o"},
}};
static_assert(std::ranges::is_sorted(PlainForms));

std::string_view plainForm(CodePoint letter) {
  const auto* const found = std::ranges::lower_bound(
      PlainForms, letter, {}, &std::pair<CodePoint, std::string_view>::first);
  return found != PlainForms.end() && found->first == letter ? found->second : std::string_view();
}

/// The code points of a text in lower case. Separates letters from accents, resolves ligatures and
/// full-width forms, and removes joiners and direction marks.
std::vector<CodePoint> decomposed(std::string_view text) {
  constexpr auto Options = static_cast<utf8proc_option_t>(
      UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD | UTF8PROC_IGNORE);
  const auto* const bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto length = static_cast<utf8proc_ssize_t>(text.size());
  const utf8proc_ssize_t count = utf8proc_decompose(bytes, length, nullptr, 0, Options);
  if (count < 0) throw PlaceFault("The name of a town must be text in UTF-8.");
  std::vector<CodePoint> points(static_cast<std::size_t>(count));
  utf8proc_decompose(bytes, length, points.data(), count, Options);
  return points;
}

bool isAccent(CodePoint point) {
  return point >= 0x300 && point <= 0x36F;
}

bool isApostrophe(CodePoint point) {
  constexpr std::u32string_view Apostrophes = U"'`\u02B9\u02BB\u02BC\u02BE\u02BF\u2018\u2019\u2032";
  return Apostrophes.find(static_cast<char32_t>(point)) != std::u32string_view::npos;
}

bool isBetweenWords(CodePoint point) {
  const utf8proc_category_t category = utf8proc_category(point);
  return (category >= UTF8PROC_CATEGORY_PC && category <= UTF8PROC_CATEGORY_PO) ||
         (category >= UTF8PROC_CATEGORY_ZS && category <= UTF8PROC_CATEGORY_ZP);
}

/// Appends a code point or its plain form to a key. Drops accents and apostrophes.
void append(std::vector<CodePoint>& key, CodePoint point) {
  if (utf8proc_category(point) == UTF8PROC_CATEGORY_CC) {
    throw PlaceFault("The name of a town must be text without control characters.");
  }
  if (isAccent(point) || isApostrophe(point)) return;
  if (isBetweenWords(point)) {
    if (!key.empty() && key.back() != ' ') key.push_back(' ');
  } else if (const std::string_view plain = plainForm(point); !plain.empty()) {
    key.insert(key.end(), plain.begin(), plain.end());
  } else {
    key.push_back(point);
  }
}

std::string encoded(const std::vector<CodePoint>& points, std::size_t count) {
  std::string text;
  std::array<utf8proc_uint8_t, 4> bytes{};
  for (std::size_t at = 0; at < count; ++at) {
    const utf8proc_ssize_t size = utf8proc_encode_char(points[at], bytes.data());
    text.append(bytes.begin(), bytes.begin() + size);
  }
  return text;
}

}  // namespace

std::string fold(std::string_view text) {
  std::vector<CodePoint> key;
  for (const CodePoint point : decomposed(text)) append(key, point);
  if (!key.empty() && key.back() == ' ') key.pop_back();
  // `decomposed` also split Hangul syllables and voiced kana; compose them again.
  const auto count = static_cast<utf8proc_ssize_t>(key.size());
  const utf8proc_ssize_t composed = utf8proc_normalize_utf32(
      key.data(), count, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE));
  return encoded(key, static_cast<std::size_t>(composed));
}

}  // namespace veldrin
