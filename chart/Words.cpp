#include "chart/Words.h"

#include <array>
#include <cstddef>
#include <vector>

#include "shell/host/Civil.h"

namespace veldrin {
namespace {

constexpr std::int32_t HourMinutes = 60;
constexpr std::array<std::string_view, 12> Months{"January",   "February", "March",    "April",
                                                  "May",       "June",     "July",     "August",
                                                  "September", "October",  "November", "December"};

std::string twoDigits(std::int32_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string events(std::string_view name, const std::vector<std::int32_t>& times) {
  std::string text;
  for (const std::int32_t time : times) text.append(name).append(clockTime(time)).append(", ");
  return text;
}

}  // namespace

std::string_view monthName(std::int32_t month) {
  return Months[static_cast<std::size_t>(month) - 1];
}

std::string dateWords(std::int64_t day) {
  const CivilDay civil = civilDay(day);
  return std::to_string(civil.day).append(" ").append(monthName(civil.month));
}

std::string clockTime(std::int32_t minute) {
  return twoDigits(minute / HourMinutes) + ':' + twoDigits(minute % HourMinutes);
}

std::string lengthWords(std::int32_t minutes) {
  return std::to_string(minutes / HourMinutes) + " h " + twoDigits(minutes % HourMinutes) + " min";
}

std::string dayWords(const SunDay& day) {
  const std::string date = dateWords(day.day) + ": ";
  if (day.isUpAllDay) return date + "Sun up all day";
  if (day.isDownAllDay()) return date + "Sun down all day";
  return date + events("sunrise ", day.sunrises) + events("sunset ", day.sunsets) +
         lengthWords(day.minutesUp) + " of sun";
}

}  // namespace veldrin
