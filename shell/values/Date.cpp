#include "shell/values/Date.h"

#include <cmath>
#include <limits>
#include <utility>

#include "shell/host/Host.h"
#include "shell/values/Text.h"

namespace veldrin {
namespace {

constexpr std::int64_t FirstYear = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t LastYear = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t FirstDay = dayNumber(FirstYear, 1, 1);
constexpr std::int64_t LastDay = dayNumber(LastYear, 12, 31);

/// A quotient rounded down and its remainder, which is never negative.
struct Quotient {
  std::int64_t whole;
  std::int64_t rest;
};
constexpr Quotient divide(std::int64_t value, std::int64_t by) {
  const std::int64_t whole = value / by - (value % by < 0 ? 1 : 0);
  return {whole, value - whole * by};
}

/// At least four digits, after a "-" if the year is negative.
String yearText(std::int32_t year) {
  return Format(year, "0000"_s);
}

}  // namespace

void Date::fillTable(ClassTable<Date>& table) {
  using I4 = std::int32_t;
  using Plain = void (Date::*)();
  using Copy = void (Date::*)(const Ref<Date>&);
  using Fields = void (Date::*)(I4, I4, I4, I4, I4, I4);
  using FieldsAndOffset = void (Date::*)(I4, I4, I4, I4, I4, I4, double);
  table.method<static_cast<Plain>(&Date::Constructor)>("Constructor"_s);
  table.method<static_cast<Copy>(&Date::Constructor)>("Constructor"_s);
  table.method<static_cast<Fields>(&Date::Constructor)>("Constructor"_s);
  table.method<static_cast<FieldsAndOffset>(&Date::Constructor)>("Constructor"_s);
  table.method<&Date::Operator_Compare>("Operator_Compare"_s);
  table.plainMethod<&Date::__Init>("__Init"_s, Private);
  table.plainMethod<&Date::__Exit>("__Exit"_s, Private);
  table.plainMethod<&Date::__Set>("__Set"_s, Private);
  table.property<std::int32_t, &Date::Year, &Date::Year>("Year"_s);
  table.property<std::int32_t, &Date::Month, &Date::Month>("Month"_s);
  table.property<std::int32_t, &Date::Day, &Date::Day>("Day"_s);
  table.property<std::int32_t, &Date::Hour, &Date::Hour>("Hour"_s);
  table.property<std::int32_t, &Date::Minute, &Date::Minute>("Minute"_s);
  table.property<std::int32_t, &Date::Second, &Date::Second>("Second"_s);
  table.readOnlyProperty<&Date::DayOfWeek>("DayOfWeek"_s);
  table.readOnlyProperty<&Date::DayOfYear>("DayOfYear"_s);
  table.readOnlyProperty<&Date::WeekOfYear>("WeekOfYear"_s);
  table.readOnlyProperty<&Date::ShortDate>("ShortDate"_s);
  table.readOnlyProperty<&Date::LongDate>("LongDate"_s);
  table.readOnlyProperty<&Date::AbbreviatedDate>("AbbreviatedDate"_s);
  table.readOnlyProperty<&Date::ShortTime>("ShortTime"_s);
  table.readOnlyProperty<&Date::LongTime>("LongTime"_s);
  table.property<double, &Date::TotalSeconds, &Date::TotalSeconds>("TotalSeconds"_s);
  table.property<double, &Date::GMTOffset, &Date::GMTOffset>("GMTOffset"_s);
}

void Date::__Init() {
  instant_ = InForce<Host>::get().now();
  held_ = Held::Instant;
}

void Date::Constructor(const Ref<Date>& other) {
  held_ = other->held_;
  fields_ = other->fields_;
  day_ = other->day_;
  secondOfDay_ = other->secondOfDay_;
  instant_ = other->instant_;
  ownOffset_ = other->ownOffset_;
}

void Date::Constructor(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                       std::int32_t minute, std::int32_t second) {
  constexpr double Unchanged = std::numeric_limits<double>::quiet_NaN();
  __Set(year, month, day, hour, minute, second, Unchanged);
}

void Date::Constructor(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                       std::int32_t minute, std::int32_t second, double gmtOffset) {
  __Set(year, month, day, hour, minute, second, gmtOffset);
}

void Date::__Set(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                 std::int32_t minute, std::int32_t second, double gmtOffset) {
  Day(1);
  Month(1);
  Year(year);
  if (month > 0) Month(month);
  if (day > 0) Day(day);
  GMTOffset(gmtOffset);
  Hour(hour);
  Minute(minute);
  Second(second);
}

void Date::write(const CivilMoment& fields, std::int64_t day, std::int64_t secondOfDay) {
  fields_ = fields;
  day_ = day;
  secondOfDay_ = secondOfDay;
  held_ = Held::Fields;
}

void Date::readClock() const {
  fields_ = InForce<Host>::get().localTime(instant_);
  day_ = dayNumber(fields_.year, fields_.month, fields_.day);
  secondOfDay_ = (fields_.hour * 60 + fields_.minute) * 60 + fields_.second;
  held_ = Held::Both;
}

void Date::set(std::int64_t day, std::int64_t secondOfDay) {
  const Quotient seconds = divide(secondOfDay, SecondsOfDay);
  day += seconds.whole;
  if (day < FirstDay) {
    write({static_cast<std::int32_t>(FirstYear), 1, 1, 0, 0, 0}, FirstDay, 0);
    return;
  }
  if (day > LastDay) {
    write({static_cast<std::int32_t>(LastYear), 12, 31, 23, 59, 59}, LastDay, SecondsOfDay - 1);
    return;
  }
  const CivilDay civil = civilDay(day);
  write({static_cast<std::int32_t>(civil.year), civil.month, civil.day,
         static_cast<std::int32_t>(seconds.rest / 3600),
         static_cast<std::int32_t>(seconds.rest / 60 % 60),
         static_cast<std::int32_t>(seconds.rest % 60)},
        day, seconds.rest);
}

void Date::setDay(std::int64_t year, std::int64_t month, std::int64_t day) {
  const Quotient months = divide(month - 1, 12);
  set(dayNumber(year + months.whole, static_cast<std::int32_t>(months.rest) + 1, day),
      secondOfDay());
}

void Date::startOf(const CivilDay& day) {
  write({static_cast<std::int32_t>(day.year), day.month, day.day, 0, 0, 0},
        dayNumber(day.year, day.month, day.day), 0);
}

void Date::Year(std::int32_t year) {
  setDay(year, Month(), Day());
}

void Date::Month(std::int32_t month) {
  setDay(Year(), month, Day());
}

void Date::Day(std::int32_t day) {
  setDay(Year(), Month(), day);
}

void Date::Hour(std::int32_t hour) {
  set(day(), secondOfDay() + (std::int64_t{hour} - Hour()) * 3600);
}

void Date::Minute(std::int32_t minute) {
  set(day(), secondOfDay() + (std::int64_t{minute} - Minute()) * 60);
}

void Date::Second(std::int32_t second) {
  set(day(), secondOfDay() + (std::int64_t{second} - Second()));
}

std::int32_t Date::DayOfWeek() const {
  return dayOfWeek(day());
}

std::int32_t Date::DayOfYear() const {
  return dayOfYear(day());
}

std::int32_t Date::WeekOfYear() const {
  return weekOfYear(day());
}

String Date::ShortDate() const {
  const ShortDateForm form = InForce<Host>::get().shortDateForm();
  const String separator(std::string_view(&form.separator, 1));
  switch (form.order) {
    case ShortDateForm::Order::DayMonthYear:
      return Str(Day()) + separator + Str(Month()) + separator + yearText(Year());
    case ShortDateForm::Order::YearMonthDay:
      return yearText(Year()) + separator + Str(Month()) + separator + Str(Day());
    case ShortDateForm::Order::YearDayMonth:
      return yearText(Year()) + separator + Str(Day()) + separator + Str(Month());
    case ShortDateForm::Order::MonthDayYear:
      break;
  }
  return Str(Month()) + separator + Str(Day()) + separator + yearText(Year());
}

String Date::hostText(DateText which) const {
  return String(InForce<Host>::get().text(which, fields()));
}

String Date::LongDate() const {
  return hostText(DateText::LongDate);
}

String Date::AbbreviatedDate() const {
  return hostText(DateText::AbbreviatedDate);
}

String Date::ShortTime() const {
  return hostText(DateText::ShortTime);
}

String Date::LongTime() const {
  return hostText(DateText::LongTime);
}

void Date::TotalSeconds(double seconds) {
  if (std::isnan(seconds)) return;
  // Beyond all 32-bit years, but within 64-bit integers.
  constexpr double Bound = 1e17;
  const auto whole =
      static_cast<std::int64_t>(std::floor(std::fmin(std::fmax(seconds, -Bound), Bound)));
  const Quotient days = divide(whole, SecondsOfDay);
  set(Origin + days.whole, days.rest);
}

double Date::GMTOffset() const {
  if (ownOffset_) return *ownOffset_;
  const Host& host = InForce<Host>::get();
  return held_ == Held::Fields ? host.gmtOffset(fields_) : host.offsetAt(instant_);
}

void Date::GMTOffset(double hours) {
  if (std::isfinite(hours)) ownOffset_ = hours;
}

std::int32_t Date::Operator_Compare(const Ref<Date>& other) const {
  if (!other) return 1;
  const std::pair own(day(), secondOfDay());
  const std::pair theirs(other->day(), other->secondOfDay());
  return static_cast<std::int32_t>(own > theirs) - static_cast<std::int32_t>(own < theirs);
}

}  // namespace veldrin
