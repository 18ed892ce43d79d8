#include "shell/host/DatePattern.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace veldrin {
namespace {

/// A strftime conversion, such as "%d", and the literal text before it.
struct Piece {
  std::string before;
  std::string modifiers;  ///< flags and the letters E and O, as in "%-d" and "%Ey"
  char letter;            ///< 0 for the text after the last conversion
};

std::vector<Piece> piecesOf(std::string_view pattern) {
  std::vector<Piece> pieces;
  std::string before;
  std::size_t at = 0;
  while (at < pattern.size()) {
    if (pattern[at] != '%' || pattern.substr(at, 2) == "%%") {
      const std::size_t length = pattern[at] == '%' ? 2 : 1;
      before += pattern.substr(at, length);
      at += length;
      continue;
    }
    const std::size_t letter = pattern.find_first_not_of("-_0^#EO", at + 1);
    if (letter == std::string_view::npos) break;
    pieces.push_back(
        {before, std::string(pattern.substr(at + 1, letter - at - 1)), pattern[letter]});
    before.clear();
    at = letter + 1;
  }
  pieces.push_back({before, "", '\0'});
  return pieces;
}

/// Expands %D, %F, %R, %T, %r, %x and %X: "%T" becomes "%H:%M:%S". The patterns of the locale
/// replace the last three.
std::string expanded(std::string_view pattern, const DatePatterns& patterns = {}) {
  std::string result;
  for (const Piece& piece : piecesOf(pattern)) {
    result += piece.before;
    switch (piece.letter) {
      case '\0':
        break;
      case 'D':
        result += "%m/%d/%y";
        break;
      case 'F':
        result += "%Y-%m-%d";
        break;
      case 'R':
        result += "%H:%M";
        break;
      case 'T':
        result += "%H:%M:%S";
        break;
      case 'r':
        result += patterns.twelveHours.empty() ? "%I:%M:%S %p" : patterns.twelveHours;
        break;
      case 'x':
        result += expanded(patterns.date);
        break;
      case 'X':
        result += expanded(patterns.time);
        break;
      default:
        (result += '%').append(piece.modifiers) += piece.letter;
    }
  }
  return result;
}

bool isOneOf(char letter, std::string_view letters) {
  return letter != '\0' && letters.find(letter) != std::string_view::npos;
}

/// "d", "m" or "y" for a day, a month (a number or a name) or a year; 0 for any other conversion.
char fieldOf(char letter) {
  if (isOneOf(letter, "de")) return 'd';
  if (isOneOf(letter, "mbBh")) return 'm';
  return isOneOf(letter, "yY") ? 'y' : '\0';
}

bool isWeekday(const Piece& piece) {
  return isOneOf(piece.letter, "aA");
}

/// The order of day, month and year, such as "dmy".
std::string orderOf(const std::vector<Piece>& pieces) {
  std::string order;
  for (const Piece& piece : pieces) {
    const char field = fieldOf(piece.letter);
    if (field != '\0' && order.find(field) == std::string::npos) order += field;
  }
  return order;
}

/// The part of a literal that belongs to the field before it: all before the first blank or comma.
std::string attached(const std::string& literal) {
  const std::size_t arabicComma = literal.find("\u060C");
  return literal.substr(0, std::min(literal.find_first_of(" ,"), arabicComma));
}

/// Replaces no-break spaces by spaces.
std::string plainBlanks(std::string text) {
  constexpr std::string_view NoBreak = "\u00A0";
  std::size_t at = 0;
  while ((at = text.find(NoBreak, at)) != std::string::npos) text.replace(at, NoBreak.size(), " ");
  return text;
}

bool beginsWithLetter(const std::string& literal) {
  if (literal.empty()) return false;
  const auto first = static_cast<unsigned char>(literal.front());
  return first >= 0x80 || (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
}

/// Whether the pattern is a full date whose month is in words.
bool hasMonthInWords(const std::vector<Piece>& pieces) {
  if (orderOf(pieces).size() != 3) return false;
  const auto month =
      std::ranges::find(pieces, 'm', [](const Piece& piece) { return fieldOf(piece.letter); });
  return month->letter != 'm' || beginsWithLetter((month + 1)->before);
}

/// A date with its month in words: the first such pattern, else one in the order of the short form.
std::vector<Piece> dateWithMonthInWords(const DatePatterns& patterns) {
  for (const std::string& pattern : {patterns.program, patterns.dateAndTime, patterns.date}) {
    std::vector<Piece> pieces = piecesOf(plainBlanks(expanded(pattern, patterns)));
    if (hasMonthInWords(pieces)) return pieces;
  }
  using enum ShortDateForm::Order;
  switch (shortDateFormOf(patterns.date).order) {
    case MonthDayYear:
      return piecesOf("%A %B %d %Y");
    case DayMonthYear:
      return piecesOf("%A %d %B %Y");
    case YearMonthDay:
      return piecesOf("%A %Y %B %d");
    case YearDayMonth:
      break;
  }
  return piecesOf("%A %Y %d %B");
}

/// The fields of the date without the time of day, and a last piece for the text after them. The
/// text around a removed time is removed too, except the text attached to a date field.
std::vector<Piece> withoutTime(const std::vector<Piece>& pieces) {
  std::vector<Piece> fields;
  std::string tail;
  bool isAfterRemoved = true;
  for (Piece piece : pieces) {
    if (fieldOf(piece.letter) == '\0' && !isOneOf(piece.letter, "aAC")) {
      if (!isAfterRemoved) tail = attached(piece.before);
      isAfterRemoved = true;
      continue;
    }
    if (isAfterRemoved) {
      piece.before.erase(0, piece.before.find_last_of(' ') + 1);
      piece.before.insert(0, fields.empty() ? "" : tail + " ");
    }
    isAfterRemoved = false;
    fields.push_back(std::move(piece));
  }
  fields.push_back({isAfterRemoved ? tail : "", "", '\0'});
  return fields;
}

/// Adds a leading weekday if the date has no weekday, and the commas.
void punctuate(std::vector<Piece>& fields) {
  if (std::ranges::none_of(fields, isWeekday)) {
    fields.front().before.insert(0, " ");
    fields.insert(fields.begin(), {"", "", 'A'});
  }
  for (std::size_t at = 1; at < fields.size(); ++at) {
    const Piece& previous = fields[at - 1];
    const bool isDayThenYear = fieldOf(previous.letter) == 'd' && fieldOf(fields[at].letter) == 'y';
    const bool needsComma = isDayThenYear || (at == 1 && isWeekday(previous));
    if (needsComma && fields[at].before == " ") fields[at].before = ", ";
  }
}

std::string conversionOf(const Piece& field, bool isFull) {
  const bool hasModifier = field.modifiers.find_first_of("EO") != std::string::npos;
  const std::string modifier =
      hasModifier ? field.modifiers.substr(field.modifiers.size() - 1) : "";
  if (isWeekday(field)) return isFull ? "%A" : "%a";
  if (isOneOf(field.letter, "bBh")) return "%" + modifier + (isFull ? "B" : "b");
  if (fieldOf(field.letter) == 'y') return "%" + modifier + (hasModifier ? field.letter : 'Y');
  return (field.letter == 'C' ? "%" : "%-") + modifier + (field.letter == 'e' ? 'd' : field.letter);
}

std::string datePattern(const DatePatterns& patterns, bool hasFullNames) {
  std::vector<Piece> fields = withoutTime(dateWithMonthInWords(patterns));
  punctuate(fields);
  std::string result;
  for (std::size_t at = 0; at + 1 < fields.size(); ++at) {
    std::string& next = fields[at + 1].before;
    // A grammatical ending needs the full name. A full name loses the abbreviation's point.
    const bool isFull = hasFullNames || beginsWithLetter(next);
    if (isFull && isOneOf(fields[at].letter, "abh") && next.starts_with('.')) next.erase(0, 1);
    result += fields[at].before + conversionOf(fields[at], isFull);
  }
  return result + fields.back().before;
}

/// %X without the time zone, and without the seconds unless `hasSeconds`. Removing a conversion
/// also removes the mark before it and the word after it.
std::string timePattern(const DatePatterns& patterns, bool hasSeconds) {
  std::string result;
  bool isRemoved = false;
  for (Piece& piece : piecesOf(expanded(patterns.time, patterns))) {
    if (isRemoved) piece.before.erase(0, attached(piece.before).size());
    isRemoved = isOneOf(piece.letter, "Zz") || (piece.letter == 'S' && !hasSeconds);
    if (isRemoved && isOneOf(piece.before.empty() ? '\0' : piece.before.back(), ":. ")) {
      piece.before.pop_back();
    }
    result += piece.before;
    if (!isRemoved && piece.letter != '\0') (result += '%').append(piece.modifiers) += piece.letter;
  }
  return result.erase(0, result.find_first_not_of(' '));
}

}  // namespace

ShortDateForm shortDateFormOf(std::string_view pattern) {
  const std::vector<Piece> pieces = piecesOf(expanded(pattern));
  const std::string order = orderOf(pieces);
  using enum ShortDateForm::Order;
  ShortDateForm form;
  if (order == "dmy") {
    form.order = DayMonthYear;
  } else if (order == "ymd") {
    form.order = YearMonthDay;
  } else if (order == "ydm") {
    form.order = YearDayMonth;
  } else if (order != "mdy") {
    return form;
  }
  const auto isField = [](const Piece& piece) { return fieldOf(piece.letter) != '\0'; };
  for (auto piece = std::ranges::find_if(pieces, isField) + 1; piece != pieces.end(); ++piece) {
    const std::size_t mark = piece->before.find_first_of("/.-");
    if (mark == std::string::npos) continue;
    form.separator = piece->before[mark];
    break;
  }
  return form;
}

std::string patternOf(DateText text, const DatePatterns& patterns) {
  switch (text) {
    case DateText::LongDate:
      return datePattern(patterns, true);
    case DateText::AbbreviatedDate:
      return datePattern(patterns, false);
    case DateText::ShortTime:
      return timePattern(patterns, false);
    case DateText::LongTime:
      break;
  }
  return timePattern(patterns, true);
}

}  // namespace veldrin
