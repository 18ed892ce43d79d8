#include "almanac/AlmanacDocument.h"

#include <array>
#include <cstddef>
#include <utility>

#include "almanac/ContentLine.h"
#include "almanac/Coordinate.h"
#include "shell/host/Civil.h"

namespace veldrin {
namespace {

/// Appends numbers from 0 to 99 with two digits each.
template <std::size_t Count>
void appendTwoDigits(std::string& text, const std::int64_t (&numbers)[Count]) {
  std::array<char, 2 * Count> digits;
  for (std::size_t index = 0; index < Count; ++index) {
    digits[2 * index] = static_cast<char>('0' + numbers[index] / 10);
    digits[2 * index + 1] = static_cast<char>('0' + numbers[index] % 10);
  }
  text.append(digits.data(), digits.size());
}

/// Appends a day, as in "20260101".
void appendDay(std::string& text, std::int64_t day) {
  const CivilDay civil = civilDay(day);
  appendTwoDigits(text, {civil.year / 100, civil.year % 100, civil.month, civil.day});
}

/// Appends a UTC time, as in "20260101T120000Z". `minute` counts from 1970-01-01 00:00.
void appendMoment(std::string& text, std::int64_t minute, std::int64_t second = 0) {
  std::int64_t day = minute / MinutesOfDay;
  if (day * MinutesOfDay > minute) --day;
  const std::int64_t minuteOfDay = minute - day * MinutesOfDay;
  appendDay(text, day);
  text += 'T';
  appendTwoDigits(text, {minuteOfDay / 60, minuteOfDay % 60, second});
  text += 'Z';
}

}  // namespace

AlmanacDocument::AlmanacDocument(const Place& place, const AlmanacOptions& options) {
  const Coordinate latitude(place.latitude);
  const Coordinate longitude(place.longitude);
  const std::string name =
      escapedText(place.name.empty() ? latitude.words('N', 'S') + ", " + longitude.words('E', 'W')
                                     : place.name);
  suffix_ = placeCode(latitude, longitude) + "@veldrin";
  stamp_ = "DTSTAMP:";
  appendMoment(stamp_, options.stamp / 60, options.stamp % 60);
  appendLine(common_, "LOCATION:" + name);
  appendLine(common_, "GEO:" + latitude.number() + ";" + longitude.number());
  appendLine(common_, "TRANSP:TRANSPARENT");
  if (options.reminder) trigger_ = "TRIGGER:-PT" + std::to_string(*options.reminder) + "M";

  appendLine(text_, "BEGIN:VCALENDAR");
  appendLine(text_, "VERSION:2.0");
  appendLine(text_, "PRODID:-//Veldrin//Veldrin " VELDRIN_VERSION "//EN");
  appendLine(text_, "CALSCALE:GREGORIAN");
  appendLine(text_, "X-WR-CALNAME:" + name);
}

void AlmanacDocument::addDay(const EventKind& kind, std::int64_t day) {
  begin(kind, day, 1);
  dayLine("DTSTART;VALUE=DATE:", day);
  dayLine("DTEND;VALUE=DATE:", day + 1);
  end(kind, false);
}

void AlmanacDocument::addMoment(const EventKind& kind, std::int64_t day, std::int64_t ordinal,
                                std::int64_t minute, bool hasReminder) {
  begin(kind, day, ordinal);
  momentLine("DTSTART:", minute);
  momentLine("DTEND:", minute + 1);
  end(kind, hasReminder);
}

std::string AlmanacDocument::finish() && {
  appendLine(text_, "END:VCALENDAR");
  return std::move(text_);
}

void AlmanacDocument::line(std::string_view name, std::string_view value) {
  line_.assign(name).append(value);
  appendLine(text_, line_);
}

void AlmanacDocument::dayLine(std::string_view name, std::int64_t day) {
  line_ = name;
  appendDay(line_, day);
  appendLine(text_, line_);
}

void AlmanacDocument::momentLine(std::string_view name, std::int64_t minute) {
  line_ = name;
  appendMoment(line_, minute);
  appendLine(text_, line_);
}

void AlmanacDocument::begin(const EventKind& kind, std::int64_t day, std::int64_t ordinal) {
  appendLine(text_, "BEGIN:VEVENT");
  line_.assign("UID:").append(kind.identifier).append("-");
  appendDay(line_, day);
  if (ordinal > 1) line_.append("-").append(std::to_string(ordinal));
  line_ += suffix_;
  appendLine(text_, line_);
  appendLine(text_, stamp_);
}

void AlmanacDocument::end(const EventKind& kind, bool hasReminder) {
  line("SUMMARY:", kind.summary);
  text_ += common_;
  if (hasReminder && !trigger_.empty()) {
    appendLine(text_, "BEGIN:VALARM");
    appendLine(text_, "ACTION:DISPLAY");
    line("DESCRIPTION:", kind.summary);
    appendLine(text_, trigger_);
    appendLine(text_, "END:VALARM");
  }
  appendLine(text_, "END:VEVENT");
}

}  // namespace veldrin
