#include "places/PosixRule.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

#include "shell/host/Civil.h"

namespace veldrin {

/// Reads a rule from its text, one function for each line of the grammar. After anything that does
/// not belong there, `isWrong()` stays true and the values mean nothing.
class RuleReader {
 public:
  explicit RuleReader(std::string_view text) : left_(text) {}

  std::optional<PosixRule> rule() {
    PosixRule rule;
    name();
    rule.standard_ = -time(MostOffsetHours);
    if (!isWrong_ && !left_.empty()) rule.saving_ = saving(rule.standard_);
    if (isWrong_ || !left_.empty()) return std::nullopt;
    return rule;
  }

 private:
  static constexpr std::int32_t MostOffsetHours = 24;
  static constexpr std::int32_t MostHours = 167;

  PosixRule::Saving saving(std::int64_t standard) {
    constexpr std::int64_t Hour = 3600;
    name();
    PosixRule::Saving saving{};
    saving.offset = left_.starts_with(',') ? standard + Hour : -time(MostOffsetHours);
    expect(',');
    saving.from = date();
    expect(',');
    saving.to = date();
    return saving;
  }

  void name() {
    const bool isQuoted = take('<');
    const auto isPart = [isQuoted](char c) {
      const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
      return isLetter || (isQuoted && ((c >= '0' && c <= '9') || c == '+' || c == '-'));
    };
    const auto length =
        static_cast<std::size_t>(std::ranges::find_if_not(left_, isPart) - left_.begin());
    if (length < 3) isWrong_ = true;
    left_.remove_prefix(length);
    if (isQuoted) expect('>');
  }

  PosixRule::Date date() {
    using Form = PosixRule::Date::Form;
    PosixRule::Date date{};
    if (take('M')) {
      date.form = Form::WeekdayOfMonth;
      date.month = number(1, 12);
      expect('.');
      date.week = number(1, 5);
      expect('.');
      date.weekday = number(0, 6);
    } else if (take('J')) {
      date.form = Form::DayWithoutLeapDay;
      date.day = number(1, 365);
    } else {
      date.form = Form::Day;
      date.day = number(0, 365);
    }
    constexpr std::int64_t TwoOClock = 7200;
    date.seconds = take('/') ? time(MostHours) : TwoOClock;
    return date;
  }

  std::int64_t time(std::int32_t mostHours) {
    const bool isNegative = take('-');
    if (!isNegative) take('+');
    std::int64_t seconds = std::int64_t{number(0, mostHours)} * 3600;
    if (take(':')) seconds += std::int64_t{number(0, 59)} * 60;
    if (take(':')) seconds += number(0, 59);
    return isNegative ? -seconds : seconds;
  }

  std::int32_t number(std::int32_t least, std::int32_t most) {
    std::int32_t value = -1;
    const bool isDigit = !left_.empty() && left_.front() >= '0' && left_.front() <= '9';
    const auto [end, error] = std::from_chars(left_.data(), left_.data() + left_.size(), value);
    if (!isDigit || error != std::errc() || value < least || value > most) {
      isWrong_ = true;
      return least;
    }
    left_.remove_prefix(static_cast<std::size_t>(end - left_.data()));
    return value;
  }

  bool take(char mark) {
    if (!left_.starts_with(mark)) return false;
    left_.remove_prefix(1);
    return true;
  }

  void expect(char mark) {
    if (!take(mark)) isWrong_ = true;
  }

  std::string_view left_;
  bool isWrong_ = false;
};

std::optional<PosixRule> PosixRule::read(std::string_view text) {
  return RuleReader(text).rule();
}

/// The local second of a date in a year.
std::int64_t PosixRule::secondOf(const Date& date, std::int64_t year) {
  const std::int64_t newYear = dayNumber(year, 1, 1);
  std::int64_t day = newYear + date.day;
  if (date.form == Date::Form::DayWithoutLeapDay) {
    constexpr std::int32_t FirstOfMarch = 60;
    const bool isPastLeapDay = date.day >= FirstOfMarch && daysInMonth(year, 2) == 29;
    if (!isPastLeapDay) --day;
  } else if (date.form == Date::Form::WeekdayOfMonth) {
    const std::int64_t first = dayNumber(year, date.month, 1);
    day = first + (date.weekday + 1 - dayOfWeek(first) + 7) % 7 + std::int64_t{7} * (date.week - 1);
    if (day >= first + daysInMonth(year, date.month)) day -= 7;
  }
  return day * SecondsOfDay + date.seconds;
}

std::int64_t PosixRule::offsetAt(std::int64_t second) const {
  if (!saving_) return standard_;
  // The hour of a date may lie days away from it, so the years beside are asked as well. Where two
  // changes fall together, daylight saving holds on all year.
  const std::int64_t year = civilDay(second / SecondsOfDay).year;
  std::int64_t latest = std::numeric_limits<std::int64_t>::min();
  std::int64_t offset = standard_;
  const auto consider = [&](std::int64_t change, std::int64_t from) {
    if (change > second || change < latest) return;
    latest = change;
    offset = from;
  };
  for (std::int64_t near = year - 1; near <= year + 1; ++near) {
    consider(secondOf(saving_->to, near) - saving_->offset, standard_);
    consider(secondOf(saving_->from, near) - standard_, saving_->offset);
  }
  return offset;
}

}  // namespace veldrin
