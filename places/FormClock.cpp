#include "places/FormClock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "places/PlaceFault.h"

namespace veldrin {
namespace {

/// Consecutive days with the same offset at noon.
struct Run {
  std::int64_t firstDay;
  std::int64_t seconds;  ///< the UTC offset, positive if ahead
};

std::int64_t noonOffset(const ClockRules& rules, std::int64_t day) {
  return std::llround(rules.offsetAt(rules.momentOf(day, MinutesOfDay / 2.0)) * 60.0);
}

std::vector<Run> runsOf(const ClockRules& rules, std::int64_t year) {
  std::vector<Run> runs;
  for (std::int64_t day = dayNumber(year, 1, 1); day < dayNumber(year + 1, 1, 1); ++day) {
    if (!rules.spanOf(day)) continue;  // the clock skips this day
    const std::int64_t seconds = noonOffset(rules, day);
    if (runs.empty() || runs.back().seconds != seconds) runs.push_back({day, seconds});
  }
  return runs;
}

/// Whether the runs alternate between standard time and one hour more.
bool areOneHourApart(const std::vector<Run>& runs) {
  constexpr std::int64_t Hour = 3600;
  return std::abs(runs[0].seconds - runs[1].seconds) == Hour &&
         (runs.size() == 2 || runs[0].seconds == runs[2].seconds);
}

SavingDates periodOf(const std::vector<Run>& runs, std::int64_t year) {
  const CivilDay second = civilDay(runs[1].firstDay);
  const bool isSavingAtStart = runs[0].seconds > runs[1].seconds;
  if (runs.size() == 3) return {second, civilDay(runs[2].firstDay), isSavingAtStart};
  if (isSavingAtStart) return {civilDay(runs[0].firstDay), second, false};
  return {second, {year + 1, 1, 1}, false};
}

/// Seconds as a number of hours: the shortest text that reads back as the same number.
std::string hoursText(std::int64_t seconds) {
  std::array<char, 32> text;
  char* const end =
      std::to_chars(text.data(), text.data() + text.size(), static_cast<double>(seconds) / 3600.0)
          .ptr;
  return {text.data(), end};
}

}  // namespace

FormClock formClock(std::string_view zoneName, const ClockRules& rules, std::int64_t year) {
  const std::vector<Run> runs = runsOf(rules, year);
  if (runs.size() == 1) return {hoursText(runs[0].seconds), std::nullopt};
  if (runs.size() > 3 || !areOneHourApart(runs)) {
    throw PlaceFault("Two dates and one hour cannot describe the clocks of " +
                     std::string(zoneName) + " in " + std::to_string(year) + "; use --standard.");
  }
  const std::int64_t standard = std::min(runs[0].seconds, runs[1].seconds);
  return {hoursText(standard), periodOf(runs, year)};
}

}  // namespace veldrin
