#include "shell/host/SystemHost.h"

#include <langinfo.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <ctime>
#include <limits>

#include "shell/host/DatePattern.h"

namespace veldrin {
namespace {

/// The short date form of the environment's locale. If it is not installed, that is month/day/year
/// with "/", as in the locale "C".
ShortDateForm environmentForm() {
  const locale_t locale = newlocale(LC_TIME_MASK, "", nullptr);
  if (locale == nullptr) return {};
  const ShortDateForm form = shortDateFormOf(nl_langinfo_l(D_FMT, locale));
  freelocale(locale);
  return form;
}

/// An instant in local time; nullopt if its year does not fit in `tm`.
std::optional<tm> localFields(std::int64_t moment) {
  tm fields{};
  const auto seconds = static_cast<time_t>(moment);
  tzset();
  if (localtime_r(&seconds, &fields) == nullptr) return std::nullopt;
  return fields;
}

/// 0 to 59: a leap second (60) counts as the second before it.
std::int32_t secondOf(const tm& fields) {
  return std::min(fields.tm_sec, 59);
}

/// Whether the local time equals the moment.
bool isAt(const tm& fields, const CivilMoment& moment) {
  return fields.tm_year + 1900 == moment.year && fields.tm_mon + 1 == moment.month &&
         fields.tm_mday == moment.day && fields.tm_hour == moment.hour &&
         fields.tm_min == moment.minute && secondOf(fields) == moment.second;
}

}  // namespace

SystemHost::SystemHost() : form_(environmentForm()) {}

std::int64_t SystemHost::now() const {
  return std::time(nullptr);
}

CivilMoment SystemHost::localTime(std::int64_t moment) const {
  const auto fields = localFields(moment);
  if (!fields) return {1970, 1, 1, 0, 0, 0};
  const std::int64_t year = std::min<std::int64_t>(std::int64_t{fields->tm_year} + 1900,
                                                   std::numeric_limits<std::int32_t>::max());
  return {static_cast<std::int32_t>(year),
          fields->tm_mon + 1,
          fields->tm_mday,
          fields->tm_hour,
          fields->tm_min,
          secondOf(*fields)};
}

double SystemHost::offsetAt(std::int64_t moment) const {
  const auto fields = localFields(moment);
  return fields ? static_cast<double>(fields->tm_gmtoff) / 3600.0 : 0.0;
}

double SystemHost::gmtOffset(const CivilMoment& moment) const {
  constexpr std::int32_t LargestYear = 1'000'000;
  if (moment.year < -LargestYear || moment.year > LargestYear) return 0.0;
  tm fields{};
  fields.tm_year = moment.year - 1900;
  fields.tm_mon = moment.month - 1;
  fields.tm_mday = moment.day;
  fields.tm_hour = moment.hour;
  fields.tm_min = moment.minute;
  fields.tm_sec = moment.second;
  fields.tm_isdst = -1;
  // For a repeated local time mktime may return either instant; for a skipped one, a nearby one.
  // The offset of the day before is the offset before the change.
  const std::int64_t found = std::mktime(&fields);
  const double before = offsetAt(found - SecondsOfDay);
  const double then = offsetAt(found);
  if (!isAt(fields, moment)) return before;
  const auto earlier = localFields(found - std::llround((before - then) * 3600.0));
  return earlier && isAt(*earlier, moment) ? before : then;
}

std::string SystemHost::text(DateText which, const CivilMoment& moment) const {
  if (!texts_) texts_.emplace();
  return texts_->text(which, moment);
}

}  // namespace veldrin
