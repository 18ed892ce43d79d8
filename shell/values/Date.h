#pragma once

#include <cstdint>
#include <optional>

#include "shell/host/Civil.h"
#include "shell/host/Host.h"
#include "shell/objects/Described.h"

namespace veldrin {

/// A mutable civil moment in local time. A new date holds the host's current time.
///
/// Every day has 86,400 seconds, even if daylight saving begins or ends on it: adding 86,400.0 to
/// `TotalSeconds` always moves the date by one calendar day.
///
///     const Ref<Date> day = New<Date>();
///     day->Year(2007);  day->Month(12);  day->Day(31);
///     day->TotalSeconds(day->TotalSeconds() + 86400.0);   // January 1, 2008, same time of day
///
/// A value outside the range of its field carries over into the larger fields: `Month(13)` is
/// January of the next year, `Day(0)` the last day of the previous month. A result beyond the
/// 32-bit years becomes the first or last moment of these years.
///
/// Veldrin uses only constructors, year, month, day, `DayOfWeek`, `ShortDate`, `TotalSeconds`,
/// `GMTOffset` and `Operator_Compare`. The framework's conventions require the rest.
class Date final : public Described<Date, Object> {
 public:
  static constexpr FixedString FullName = "Date";
  static void fillTable(ClassTable<Date>& table);

  /// Reads the host's clock.
  void __Init();
  /// Does nothing: a date refers to no other object.
  void __Exit() {}
  /// Does nothing: `__Init` sets the moment.
  void Constructor() {}
  /// Copies the moment and the offset of `other`. Raises `NilObjectException` for nil.
  void Constructor(const Ref<Date>& other);
  /// Sets the fields. A month below 1 means January, a day below 1 means the first. Other values
  /// out of range carry over.
  void Constructor(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                   std::int32_t minute, std::int32_t second);
  /// Also sets `GMTOffset`.
  void Constructor(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                   std::int32_t minute, std::int32_t second, double gmtOffset);

  [[nodiscard]] std::int32_t Year() const { return fields().year; }
  void Year(std::int32_t year);
  [[nodiscard]] std::int32_t Month() const { return fields().month; }
  void Month(std::int32_t month);
  [[nodiscard]] std::int32_t Day() const { return fields().day; }
  void Day(std::int32_t day);
  [[nodiscard]] std::int32_t Hour() const { return fields().hour; }
  void Hour(std::int32_t hour);
  [[nodiscard]] std::int32_t Minute() const { return fields().minute; }
  void Minute(std::int32_t minute);
  [[nodiscard]] std::int32_t Second() const { return fields().second; }
  void Second(std::int32_t second);

  /// 1 is Sunday, 7 is Saturday.
  [[nodiscard]] std::int32_t DayOfWeek() const;
  /// 1 to 366.
  [[nodiscard]] std::int32_t DayOfYear() const;
  /// The ISO 8601 week, 1 to 53.
  [[nodiscard]] std::int32_t WeekOfYear() const;

  /// The day in the host's short form, without leading zeros and with at least four digits of year:
  /// "3/9/2008". `ParseDate` reads it back as the same day.
  [[nodiscard]] String ShortDate() const;
  /// The day with full names: "Sonntag, 22. November 2026" on a German host.
  [[nodiscard]] String LongDate() const;
  /// The day with abbreviated names: "So, 22. Nov 2026".
  [[nodiscard]] String AbbreviatedDate() const;
  /// The time of day without seconds: "16:05", or "04:05 PM".
  [[nodiscard]] String ShortTime() const;
  /// The time of day with seconds: "16:05:09".
  [[nodiscard]] String LongTime() const;

  /// Civil seconds since 1904-01-01 00:00:00, negative before it. Exact up to 2^53 seconds, in the
  /// years -285,424,877 to 285,428,684; beyond, rounded by up to 4 seconds.
  [[nodiscard]] double TotalSeconds() const {
    if (held_ == Held::Instant) readClock();
    return static_cast<double>((day_ - Origin) * SecondsOfDay + secondOfDay_);
  }
  /// Sets the date and the time of day. Rounds down to whole seconds; ignores NaN.
  void TotalSeconds(double seconds);

  /// The UTC offset in hours, east positive: the offset that was set, else the host's offset at
  /// this date, daylight saving included. A date that was never changed uses the instant of its
  /// creation. A changed date uses its fields, see `Host::gmtOffset`.
  [[nodiscard]] double GMTOffset() const;
  /// Sets the offset until the next call. The fields keep their values, so the date becomes another
  /// instant. Infinities and NaN are ignored.
  void GMTOffset(double hours);

  /// Compares the fields and ignores the offsets: -1, 0 or 1 if this date is earlier than, equal to
  /// or later than the other; 1 for nil.
  [[nodiscard]] std::int32_t Operator_Compare(const Ref<Date>& other) const;

 private:
  static constexpr std::int64_t Origin = dayNumber(1904, 1, 1);

  friend bool ParseDate(const String& text, Ref<Date>& date);

  /// Which members are valid: `instant_` alone, the instant and the fields computed from it, or
  /// fields that were written. The local time is computed on first use, because most dates are
  /// written before they are read.
  enum class Held : std::uint8_t { Instant, Both, Fields };

  /// The common body of the constructors with fields. NaN leaves the offset unchanged. Sets day and
  /// month to 1 first, so that no intermediate date carries over.
  void __Set(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
             std::int32_t minute, std::int32_t second, double gmtOffset);

  [[nodiscard]] const CivilMoment& fields() const {
    if (held_ == Held::Instant) readClock();
    return fields_;
  }
  void readClock() const;
  void write(const CivilMoment& fields, std::int64_t day, std::int64_t secondOfDay);
  void set(std::int64_t day, std::int64_t secondOfDay);
  void setDay(std::int64_t year, std::int64_t month, std::int64_t day);
  void startOf(const CivilDay& day);
  // `day_` and `secondOfDay_` repeat the fields, because dates are compared far more often than
  // written.
  [[nodiscard]] std::int64_t day() const {
    if (held_ == Held::Instant) readClock();
    return day_;
  }
  [[nodiscard]] std::int64_t secondOfDay() const {
    if (held_ == Held::Instant) readClock();
    return secondOfDay_;
  }
  [[nodiscard]] String hostText(DateText which) const;

  mutable Held held_ = Held::Fields;
  mutable CivilMoment fields_{1904, 1, 1, 0, 0, 0};
  mutable std::int64_t day_ = Origin;
  mutable std::int64_t secondOfDay_ = 0;
  std::int64_t instant_ = 0;
  std::optional<double> ownOffset_;
};

}  // namespace veldrin
