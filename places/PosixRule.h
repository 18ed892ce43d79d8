#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veldrin {

// The rule at the end of a zone file, which holds for all years after its last change (POSIX, TZ,
// with the hours of RFC 8536, 3.3.1):
//
//   rule   = name offset (name offset? "," date "," date)?
//   name   = letter(3 or more) | "<" (letter | digit | "+" | "-")(3 or more) ">"
//   offset = time                                    west positive: CET-1CEST is an hour east
//   date   = ("M" month "." week "." weekday | "J" day(1 to 365) | day(0 to 365)) ("/" time)?
//   time   = ("+" | "-")? hours (":" minutes (":" seconds)?)?
//
// Week 5 is the last of the month; weekday 0 is Sunday. "J" never counts February 29. The hour of a
// date is 2 if nothing else is said.

/// A rule that holds year after year.
class PosixRule {
 public:
  /// The rule of a text; nothing if the text is none.
  static std::optional<PosixRule> read(std::string_view text);

  /// Seconds by which the clock is ahead of Universal Time, at a second since 1970-01-01 00:00 UTC.
  [[nodiscard]] std::int64_t offsetAt(std::int64_t second) const;

 private:
  /// A day of any year, and the seconds of the local time from its midnight.
  struct Date {
    enum class Form : std::uint8_t { WeekdayOfMonth, DayWithoutLeapDay, Day };
    Form form;
    std::int32_t month, week, weekday, day;
    std::int64_t seconds;
  };
  struct Saving {
    std::int64_t offset;
    Date from;
    Date to;
  };
  friend class RuleReader;
  static std::int64_t secondOf(const Date& date, std::int64_t year);

  std::int64_t standard_ = 0;
  std::optional<Saving> saving_;
};

}  // namespace veldrin
