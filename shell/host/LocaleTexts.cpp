#include "shell/host/LocaleTexts.h"

#include <iconv.h>
#include <langinfo.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <limits>
#include <string_view>

#include "shell/host/DatePattern.h"

namespace veldrin {
namespace {

/// Converts a text to UTF-8. If the C library cannot, every byte outside ASCII becomes "?".
std::string inUtf8(std::string text, const char* codeset) {
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
  if (std::string_view(codeset) == "UTF-8" || std::ranges::all_of(text, isAscii)) return text;
  std::string result(text.size() * 4, '\0');
  char* from = text.data();
  char* to = result.data();
  std::size_t remaining = text.size();
  std::size_t space = result.size();
  constexpr auto Failed = static_cast<std::size_t>(-1);
  auto* const converter = ::iconv_open("UTF-8", codeset);
  const bool isOpen = reinterpret_cast<std::intptr_t>(converter) != -1;
  const bool isConverted = isOpen && ::iconv(converter, &from, &remaining, &to, &space) != Failed;
  if (isOpen) ::iconv_close(converter);
  if (isConverted) return result.substr(0, result.size() - space);
  std::ranges::replace_if(
      text, [&](char byte) { return !isAscii(byte); }, '?');
  return text;
}

tm fieldsOf(const CivilMoment& moment) {
  constexpr std::int32_t FirstYear = std::numeric_limits<std::int32_t>::min() + 1900;
  const std::int64_t day = dayNumber(moment.year, moment.month, moment.day);
  tm fields{};
  fields.tm_year = std::max(moment.year, FirstYear) - 1900;
  fields.tm_mon = moment.month - 1;
  fields.tm_mday = moment.day;
  fields.tm_hour = moment.hour;
  fields.tm_min = moment.minute;
  fields.tm_sec = moment.second;
  fields.tm_wday = dayOfWeek(day) - 1;
  fields.tm_yday = dayOfYear(day) - 1;
  return fields;
}

}  // namespace

LocaleTexts::LocaleTexts() : locale_(newlocale(LC_TIME_MASK, "", nullptr)) {
  if (!locale_) locale_.reset(newlocale(LC_TIME_MASK, "C", nullptr));
}

std::string LocaleTexts::text(DateText which, const CivilMoment& moment) const {
  const auto itemOf = [this](nl_item item) { return nl_langinfo_l(item, locale_.get()); };
  // _DATE_FMT (the pattern of the program `date`) and _NL_TIME_CODESET are GNU extensions. The
  // encoding of LC_TIME may differ from CODESET, the encoding of LC_CTYPE.
  const DatePatterns patterns{itemOf(_DATE_FMT), itemOf(D_T_FMT), itemOf(D_FMT), itemOf(T_FMT),
                              itemOf(T_FMT_AMPM)};
  const tm fields = fieldsOf(moment);
  std::array<char, 1024> text{};
  const std::string pattern = patternOf(which, patterns);
  std::size_t length =
      ::strftime_l(text.data(), text.size(), pattern.c_str(), &fields, locale_.get());
  // Trim blanks: some locales pad the hour, or use %p without texts for AM and PM.
  while (length > 0 && text[length - 1] == ' ') --length;
  const std::size_t first = std::string_view(text.data(), length).find_first_not_of(' ');
  const std::size_t blanks = std::min(first, length);
  return inUtf8({text.data() + blanks, length - blanks}, itemOf(_NL_TIME_CODESET));
}

}  // namespace veldrin
