#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "almanac/Almanac.h"
#include "civiltime/ClockRules.h"

namespace veldrin {

/// How light a moment is. The value counts the altitudes below the Sun: -18, -12, -6 degrees, and
/// that of sunrise and sunset.
enum class Band : std::uint8_t { Night, Astronomical, Nautical, Civil, Day };
inline constexpr std::size_t BandCount = 5;

/// The bands at a place during some UTC days. They change at sunrise, sunset and the twilights, to
/// the minute as in `almanac`. Minutes count from 1970-01-01 00:00 UTC.
class Light {
 public:
  /// The band from a minute on.
  struct Change {
    std::int64_t minute;
    Band band;
  };

  /// Both days, numbered as in shell/host/Civil.h, are included. Calls `yield()` once for each day;
  /// an exception that it throws passes through.
  Light(const Place& place, std::int64_t firstDay, std::int64_t lastDay,
        const std::function<void()>& yield);

  /// The changes in order of time. If two share a minute, the second counts.
  [[nodiscard]] const std::vector<Change>& changes() const { return changes_; }

  /// The band before the first change.
  [[nodiscard]] Band atFirst() const { return atFirst_; }

  [[nodiscard]] Band bandAt(double minute) const;

  /// How many minutes of a span the Sun is up.
  [[nodiscard]] double minutesOfSun(const DaySpan& span) const;

  /// The first change after a minute.
  [[nodiscard]] std::vector<Change>::const_iterator firstAfter(double minute) const;

 private:
  Band atFirst_ = Band::Night;
  std::vector<Change> changes_;
};

}  // namespace veldrin
