#pragma once

#include <string>
#include <string_view>

#include "shell/host/Host.h"

namespace veldrin {

// Derives the host's date forms from the strftime patterns of a locale. No locale has a pattern for
// a long date with full names, so the longer forms are derived from its other patterns.

/// The strftime patterns of a locale; any may be empty.
struct DatePatterns {
  std::string program = {};      ///< the pattern of the program `date`
  std::string dateAndTime = {};  ///< %c
  std::string date = {};         ///< %x
  std::string time = {};         ///< %X
  std::string twelveHours = {};  ///< %r
};

/// The short form of a pattern of %x, such as "%d.%m.%Y": the order of its day, month (as a number
/// or a name) and year, and the first "/", "." or "-" after the first of them, or "/" without one.
/// Month/day/year with "/" if the pattern lacks one of the three.
ShortDateForm shortDateFormOf(std::string_view pattern);

/// The strftime pattern of one of the host's longer forms.
///
/// A date comes from the first of the patterns of `date`, %c and %x whose month is in words: a
/// name, or a number followed by a word, as in Chinese. Its order and punctuation stay. Its time of
/// day is removed, names become full or abbreviated, numbers lose leading zeros, the year gets four
/// digits. A comma follows a leading weekday and separates a day from a year right after it:
///
///     "%a %-d. %b %H:%M:%S %Z %Y"   Sonntag, 22. November 2026 in German
///     "%a %b %e %r %Z %Y"           Sunday, November 22, 2026
///
/// If no pattern has its month in words, the order of the short form is used. A long time is %X
/// without its zone; a short time also lacks the seconds.
std::string patternOf(DateText text, const DatePatterns& patterns);

}  // namespace veldrin
