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

/// The short form of a pattern of %x, such as "%d.%m.%Y": the order of day, month (a number or a
/// name) and year, and the first "/", "." or "-" after the first field, else "/". Month/day/year
/// with "/" if a field is missing or the order is not an `Order`.
ShortDateForm shortDateFormOf(std::string_view pattern);

/// The strftime pattern of one of the host's longer forms.
///
/// A date comes from the first pattern of `date`, %c and %x that has its month in words: a name, or
/// a number before a word, as in Chinese. Order and punctuation stay. The time of day is removed, a
/// missing weekday is put in front. Names become full or abbreviated, numbers lose leading zeros,
/// the year gets four digits. A comma is added after a leading weekday and between a day and a
/// year:
///
///     "%a %-d. %b %H:%M:%S %Z %Y"   Sonntag, 22. November 2026 in German
///     "%a %b %e %r %Z %Y"           Sunday, November 22, 2026
///
/// If no pattern has its month in words, the order of the short form is used. A long time is %X
/// without the time zone. A short time also lacks the seconds.
std::string patternOf(DateText text, const DatePatterns& patterns);

}  // namespace veldrin
