#pragma once

#include <cstdint>
#include <optional>

#include "shell/host/Civil.h"
#include "shell/host/Host.h"
#include "shell/objects/Described.h"

namespace veldrin {

/// A mutable civil moment in local time. A new one holds the present moment of the host.
///
/// It counts civil seconds: every day has 86,400 of them, whatever the host's zone does to its
/// clocks, so a step of 86,400.0 in `TotalSeconds` is one calendar day, always.
///
///     const Ref<Date> day = New<Date>();
///     day->Year(2007);  day->Month(12);  day->Day(31);
///     day->TotalSeconds(day->TotalSeconds() + 86400.0);   // January 1, 2008, same time of day
///
/// A field that is written out of its range carries over into the larger ones, as seconds would:
/// `Month(13)` is January of the next year, `Day(0)` the last day of the month before. What would
/// leave the years of 32 bits stays at the first or the last moment of them.
///
/// The texts but for `ShortDate` are the host's own, with its names and its order.
class Date final : public Described<Date, Object> {
 public:
  static constexpr FixedString FullName = "Date";
  static void fillTable(ClassTable<Date>& table);

  /// Takes the present moment of the host's clock.
  void __Init();
  /// Does nothing: a date holds no other object.
  void __Exit() {}
  /// Empty: the moment comes from `__Init`.
  void Constructor() {}
  /// The other's moment and its offset. Raises `NilObjectException` for nil.
  void Constructor(const Ref<Date>& other);
  /// The moment of these fields, which carry over as they do when they are written; a month or a
  /// day that is not above 0 leaves January or the first.
  void Constructor(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                   std::int32_t minute, std::int32_t second);
  /// The same with an offset of its own, as `GMTOffset` is written.
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

  /// 1 for Sunday to 7 for Saturday.
  [[nodiscard]] std::int32_t DayOfWeek() const;
  /// 1 for January 1 to 366.
  [[nodiscard]] std::int32_t DayOfYear() const;
  /// The week by ISO 8601, 1 to 53: from Monday on, and of the year that has its Thursday.
  [[nodiscard]] std::int32_t WeekOfYear() const;

  /// The day in the host's short form, without leading zeros, with four digits of year or more:
  /// "3/9/2008". `ParseDate` reads it back as the same day.
  [[nodiscard]] String ShortDate() const;
  /// The day with the names in full: "Sonntag, 22. November 2026" on a German host.
  [[nodiscard]] String LongDate() const;
  /// The same with the names as the host abbreviates them: "So, 22. Nov 2026".
  [[nodiscard]] String AbbreviatedDate() const;
  /// The time of day without seconds: "16:05", or "04:05 PM".
  [[nodiscard]] String ShortTime() const;
  /// The time of day with seconds: "16:05:09".
  [[nodiscard]] String LongTime() const;

  /// Civil seconds since 1904-01-01 00:00:00; later moments have larger values.
  [[nodiscard]] double TotalSeconds() const {
    if (held_ == Held::Instant) readClock();
    return static_cast<double>((day_ - Origin) * SecondsOfDay + secondOfDay_);
  }
  /// Moves the whole date. A fraction of a second is dropped; not-a-number leaves the date as it
  /// is.
  void TotalSeconds(double seconds);

  /// The distance of the host's zone from Greenwich at this date, in hours, east positive, with the
  /// daylight-saving hour where it applies. A date that still holds the moment at which it was made
  /// goes by that instant. One that was moved since goes by its fields: in the hour that the clocks
  /// repeat it is the first of the two, and in one that they skip it has the offset from before.
  [[nodiscard]] double GMTOffset() const;
  /// Gives the date an offset of its own, which stays whatever moves the date; its fields stay too,
  /// so it is another instant by the same clock. What is not finite is ignored.
  void GMTOffset(double hours);

  /// -1, 0 or 1 as the fields of this date are before, at or after the other's, whatever their
  /// offsets; 1 for nil, so that a date never equals nil.
  [[nodiscard]] std::int32_t Operator_Compare(const Ref<Date>& other) const;

 private:
  static constexpr std::int64_t Origin = dayNumber(1904, 1, 1);

  friend bool ParseDate(const String& text, Ref<Date>& date);

  /// What the date holds: the instant of the clock at `__Init`, its fields as well, or fields that
  /// were written since. Most dates are moved before anybody looks, so the zone is asked for the
  /// fields when the first of them is.
  enum class Held : std::uint8_t { Instant, Both, Fields };

  /// The common body of the constructors with fields. Day and month start at 1, so that no date on
  /// the way carries over.
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
  // The number of the day and the second of the day are kept beside the fields because dates are
  // compared far more often than they are moved.
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
