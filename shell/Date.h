#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "shell/Civil.h"
#include "shell/Host.h"
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
class Date final : public Described<Date, Object> {
 public:
  static constexpr FixedString FullName = "Date";
  static void fillTable(ClassTable<Date>& table);

  /// Takes the present moment of the host's clock.
  void __Init();
  /// Empty: the moment comes from `__Init`.
  void Constructor() {}

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

  /// The day in the host's short form, without leading zeros, with four digits of year or more:
  /// "3/9/2008". `ParseDate` reads it back as the same day.
  [[nodiscard]] String ShortDate() const;

  /// Civil seconds since 1904-01-01 00:00:00; later moments have larger values.
  [[nodiscard]] double TotalSeconds() const {
    return static_cast<double>((day() - Origin) * SecondsOfDay + secondOfDay());
  }
  /// Moves the whole date. A fraction of a second is dropped; not-a-number leaves the date as it
  /// is.
  void TotalSeconds(double seconds);

  /// The distance of the host's zone from Greenwich at this date, in hours, east positive, with the
  /// daylight-saving hour where it applies.
  [[nodiscard]] double GMTOffset() const;

  /// -1, 0 or 1 as this date is before, at or after the other; 1 for nil, so that a date never
  /// equals nil.
  [[nodiscard]] std::int32_t Operator_Compare(const Ref<Date>& other) const;

 private:
  static constexpr std::int64_t SecondsOfDay = 86400;
  static constexpr std::int64_t Origin = dayNumber(1904, 1, 1);

  friend bool ParseDate(const String& text, Ref<Date>& date);

  [[nodiscard]] const CivilMoment& fields() const {
    if (pending_) readClock();
    return fields_;
  }
  void readClock() const;
  void write(const CivilMoment& fields, std::int64_t day) const;
  void set(std::int64_t day, std::int64_t secondOfDay);
  void setDay(std::int64_t year, std::int64_t month, std::int64_t day);
  void startOf(const CivilDay& day);
  /// The number of the day, kept beside its fields because dates are compared far more often than
  /// they are moved.
  [[nodiscard]] std::int64_t day() const {
    if (pending_) readClock();
    return day_;
  }
  [[nodiscard]] std::int64_t secondOfDay() const {
    const CivilMoment& now = fields();
    return now.hour * 3600 + now.minute * 60 + now.second;
  }

  // The moment is the clock's at `__Init`. Most dates are given another before anybody looks, so
  // the zone is asked for the fields when the first of them is.
  mutable bool pending_ = false;
  mutable CivilMoment fields_{1904, 1, 1, 0, 0, 0};
  mutable std::int64_t day_ = Origin;
  std::int64_t moment_ = 0;
};

/// The day that a text names, if it names one. Two forms are read, with blanks around and no more:
/// the host's short form with any of "/", ".", "-" or a blank between the numbers, and a day that
/// begins with the year, as in "2008-03-09". A year has two digits (69 to 99 are 1969 to 1999, 00
/// to 68 are 2000 to 2068) or four and more, a month or a day one or two; a day that does not exist
/// is no date.
std::optional<CivilDay> readDate(std::string_view text, const ShortDateForm& form);

/// Reads a text as a date, by `readDate` and the host's form. On true `date` holds that day at
/// 00:00:00 (a new one is made where it is nil); on false it is left as it was. It never raises.
bool ParseDate(const String& text, Ref<Date>& date);

}  // namespace veldrin
