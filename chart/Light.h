#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "almanac/Almanac.h"
#include "civiltime/ClockRules.h"

namespace veldrin {

/// The light of a moment, from dark to bright: the Sun is above as many of the four altitudes of
/// the calendar (18, 12 and 6 degrees below the horizon, and that of sunrise and sunset) as the
/// number of the band says.
enum class Band : std::uint8_t { Night, Astronomical, Nautical, Civil, Day };
inline constexpr std::size_t BandCount = 5;

/// The light above a place from one Greenwich day to another. Its changes are the events of the
/// calendar. Minutes count since 1970-01-01 00:00 Universal Time.
class Light {
 public:
  /// A minute, and the light from then on.
  struct Change {
    std::int64_t minute;
    Band band;
  };

  /// Days are numbered as in shell/host/Civil.h, and both belong to it. `yield()` is called once
  /// for each day; what it throws passes through.
  Light(const Place& place, std::int64_t firstDay, std::int64_t lastDay,
        const std::function<void()>& yield);

  /// In order of time. Two changes may share a minute; then the second one counts.
  [[nodiscard]] const std::vector<Change>& changes() const { return changes_; }

  /// The light before the first change.
  [[nodiscard]] Band atFirst() const { return atFirst_; }

  [[nodiscard]] Band bandAt(double minute) const;

  /// The minutes of a span in which the Sun is up.
  [[nodiscard]] double minutesOfSun(const DaySpan& span) const;

  /// The first change after a minute.
  [[nodiscard]] std::vector<Change>::const_iterator firstAfter(double minute) const;

 private:
  Band atFirst_ = Band::Night;
  std::vector<Change> changes_;
};

}  // namespace veldrin
