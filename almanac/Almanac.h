#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "civiltime/ClockRules.h"

namespace veldrin {

/// A place on Earth.
struct Place {
  std::string name;  ///< in UTF-8; if empty, the calendar shows the coordinates
  double latitude;   ///< degrees, north positive [-90:90]
  double longitude;  ///< degrees, east positive [-180:180]
};

/// A year [1583:9998] and the place's clock in that year.
struct ClockYear {
  std::int32_t year;
  ClockRules clock;
};

/// A twilight. The value is its darker limit: degrees of the Sun's centre below the horizon.
enum class Twilight : std::uint8_t { Civil = 6, Nautical = 12, Astronomical = 18 };

/// The optional content of the calendar.
struct AlmanacOptions {
  std::set<Twilight> twilights;
  std::optional<std::int32_t> reminder;  ///< minutes before a sunrise or sunset
  std::int64_t stamp = 0;  ///< time of creation: seconds since 1970, UTC, up to the year 9999
};

/// The calendar of a place for some years as an iCalendar text (RFC 5545), for today's calendar
/// programs.
///
/// The calendar has each sunrise and sunset and the chosen twilights of each local day of a year,
/// in Universal Time rounded to the minute. The clock assigns each event to a local day. A day with
/// neither sunrise nor sunset has an all-day event that says whether the Sun is up or down. A day
/// that the clock skips has no event. The UID of an event depends on place, kind, day and ordinal
/// only. So a repeated import replaces events, and years of a place can be imported separately.
///
/// A time may differ by a minute from the window's: see `crossings`. `yield()` is called once for
/// each day; its exceptions pass through.
std::string almanac(const Place& place, std::span<const ClockYear> years,
                    const AlmanacOptions& options, const std::function<void()>& yield);

}  // namespace veldrin
