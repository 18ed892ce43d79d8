#pragma once

#include <string>
#include <string_view>

#include "shell/host/Host.h"

namespace veldrin {

// What a host's patterns of strftime say about its dates and times. No pattern gives a long date
// with full names as people write it, so the longer texts are made from those that there are.

/// The patterns of a host's date setting; any may be empty.
struct DatePatterns {
  std::string program = {};      ///< of the program `date`
  std::string dateAndTime = {};  ///< %c
  std::string date = {};         ///< %x
  std::string time = {};         ///< %X
  std::string twelveHours = {};  ///< %r
};

/// The form of a pattern of %x, such as "%d.%m.%Y": the order in which day, month and year stand
/// there, a month's name too, and the first of "/", "." and "-" behind the first of them, else "/".
/// Month/day/year with "/" for a pattern that does not name all three.
ShortDateForm shortDateFormOf(std::string_view pattern);

/// The pattern of one of the host's longer texts.
///
/// A date is the first of the patterns of `date`, %c and %x in which the month is spoken (a name,
/// or a number with a word behind it, as in Chinese), without its time of day: names in full or
/// abbreviated, no leading zeros, four digits of year. Its order and its marks stay, but a comma
/// follows a weekday in front, and parts the day from a year right behind it:
///
///     "%a %-d. %b %H:%M:%S %Z %Y"   Sonntag, 22. November 2026 in German
///     "%a %b %e %r %Z %Y"           Sunday, November 22, 2026
///
/// Where no pattern is like that, the order is that of the short form. A time is %X without its
/// zone, a short one without its seconds too.
std::string patternOf(DateText text, const DatePatterns& patterns);

}  // namespace veldrin
