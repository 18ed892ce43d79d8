#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/host/Civil.h"
#include "shell/objects/InForce.h"

namespace veldrin {

/// How the host writes a short date: the order of the three numbers, and what stands between them.
struct ShortDateForm {
  enum class Order : std::uint8_t { MonthDayYear, DayMonthYear, YearMonthDay, YearDayMonth };

  Order order = Order::MonthDayYear;
  char separator = '/';  ///< one of "/", "." and "-"

  bool operator==(const ShortDateForm&) const = default;
};

/// The texts in which the host says a date or a time of day to people.
enum class DateText : std::uint8_t { LongDate, AbbreviatedDate, ShortTime, LongTime };

/// What Veldrin asks of the machine: its clock, its zone and its date forms. The host in force is
/// `InForce<Host>::get()`.
class Host {
 public:
  static constexpr std::string_view Kind = "host";

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  virtual ~Host() = default;

  /// The present moment in seconds since 1970-01-01 00:00:00 UTC.
  [[nodiscard]] virtual std::int64_t now() const = 0;

  /// A moment of the clock as the host's zone shows it.
  [[nodiscard]] virtual CivilMoment localTime(std::int64_t moment) const = 0;

  /// The zone's distance from Greenwich at a moment of the clock, in hours, east positive, with the
  /// daylight-saving hour where it applies.
  [[nodiscard]] virtual double offsetAt(std::int64_t moment) const = 0;

  /// The same at a local moment: that of the first where the zone has it twice, and that before the
  /// change where the zone leaves it out.
  [[nodiscard]] virtual double gmtOffset(const CivilMoment& moment) const = 0;

  [[nodiscard]] virtual ShortDateForm shortDateForm() const = 0;

  /// A local moment as one of the host's texts, in UTF-8.
  [[nodiscard]] virtual std::string text(DateText which, const CivilMoment& moment) const = 0;

 protected:
  Host() = default;
};

}  // namespace veldrin
