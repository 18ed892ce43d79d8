#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/host/Civil.h"
#include "shell/objects/InForce.h"

namespace veldrin {

/// The host's short date: the order of day, month and year, and the mark between them.
struct ShortDateForm {
  enum class Order : std::uint8_t { MonthDayYear, DayMonthYear, YearMonthDay, YearDayMonth };

  Order order = Order::MonthDayYear;
  char separator = '/';  ///< one of "/", "." and "-"

  bool operator==(const ShortDateForm&) const = default;
};

/// The longer forms in which the host writes a date or a time of day.
enum class DateText : std::uint8_t { LongDate, AbbreviatedDate, ShortTime, LongTime };

/// The machine that Veldrin runs on: its clock, time zone and date forms. The current host is
/// `InForce<Host>::get()`.
class Host {
 public:
  static constexpr std::string_view Kind = "host";

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  virtual ~Host() = default;

  /// The current time in seconds since 1970-01-01 00:00:00 UTC.
  [[nodiscard]] virtual std::int64_t now() const = 0;

  /// The local time at a moment, which counts seconds as `now` does.
  [[nodiscard]] virtual CivilMoment localTime(std::int64_t moment) const = 0;

  /// The host's UTC offset at a moment, which counts seconds as `now` does. In hours, east
  /// positive, daylight saving included.
  [[nodiscard]] virtual double offsetAt(std::int64_t moment) const = 0;

  /// The UTC offset at a local moment, in hours. For a repeated local time, the offset of its first
  /// occurrence; for a skipped one, the offset before the change.
  [[nodiscard]] virtual double gmtOffset(const CivilMoment& moment) const = 0;

  [[nodiscard]] virtual ShortDateForm shortDateForm() const = 0;

  /// A local moment in one of the host's longer forms, in UTF-8.
  [[nodiscard]] virtual std::string text(DateText which, const CivilMoment& moment) const = 0;

 protected:
  Host() = default;
};

}  // namespace veldrin
