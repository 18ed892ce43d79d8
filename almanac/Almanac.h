#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "daystatus/Veldrin.h"

namespace veldrin {

/// A twilight, by the degrees that the Sun's centre stands under the horizon at its darker end.
enum class Twilight : std::uint8_t { Civil = 6, Nautical = 12, Astronomical = 18 };

/// What a document says beside what stands in the window.
struct AlmanacOptions {
  std::string place;  ///< the name of the place, in UTF-8; empty for its coordinates
  std::set<Twilight> twilights;
  std::optional<std::int32_t> reminder;  ///< minutes before a sunrise or sunset
  std::int64_t stamp = 0;  ///< when it was made, seconds since 1970-01-01 00:00 UTC, years to 9999
};

/// The calendar of a year that every calendar program takes, as an iCalendar text (RFC 5545).
///
/// Each event of the local days January 1 to December 31 is in it at its moment in Universal Time,
/// rounded to the minute, so that no zone has a part in it: the window's zone and daylight saving
/// say only where a day begins. A day with neither sunrise nor sunset has an event of the whole day
/// that says whether the Sun is up or down. The identifiers are the same in each run, so that a
/// calendar program that knows identifiers replaces what it has. The years of one place join, as
/// long as both have the same offset at the midnight between them.
///
/// Place, zone, daylight saving and year, which is 1583 to 9998, are those of the window's
/// controls. Against the panel a time may differ by a minute: see `crossings`.
std::string almanac(const Ref<Veldrin>& window, const AlmanacOptions& options);

}  // namespace veldrin
