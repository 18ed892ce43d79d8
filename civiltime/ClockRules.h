#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace veldrin {

// Moments are in minutes since 1970-01-01 00:00 Universal Time. They may be fractional, because a
// zone may be any fraction of an hour. Days are numbered as in shell/host/Civil.h.

/// A change of a clock.
struct ClockChange {
  double from;    ///< the moment of the change
  double offset;  ///< the UTC offset from then on, in minutes, east positive
};

/// The moments at which a local day begins and ends. If the clock is set back past midnight, the
/// day ends twice, and `end` is the second time.
struct DaySpan {
  double begin;
  double end;
};

/// The UTC offset of a place's clocks, with its changes.
///
///     const ClockRules berlin(60.0, {{29'579'100.0, 120.0}});  // 2026-03-29 01:00 UTC
///     berlin.offsetAt(29'579'099.0);                           // 60.0
class ClockRules {
 public:
  /// `offset` applies until the first change. The changes must be in order of time.
  explicit ClockRules(double offset, std::vector<ClockChange> changes = {});

  /// The UTC offset at a moment, in minutes, east positive.
  [[nodiscard]] double offsetAt(double moment) const;

  /// The number of the local day to which a moment belongs.
  [[nodiscard]] std::int64_t dayAt(double moment) const;

  /// The span of a local day, or nothing if the clocks skip the day, as in Apia on 2011-12-30.
  [[nodiscard]] std::optional<DaySpan> spanOf(std::int64_t day) const;

  /// The moment at which the clock shows a minute [0:1440] of a day: the first moment for a
  /// repeated local time. For a skipped local time, the offset before the change applies.
  [[nodiscard]] double momentOf(std::int64_t day, double minuteOfDay) const;

 private:
  /// A period with one offset.
  struct Stretch {
    double from;
    double to;
    double offset;
  };
  [[nodiscard]] Stretch stretch(std::size_t index) const;

  double initialOffset_;
  std::vector<ClockChange> changes_;
};

}  // namespace veldrin
