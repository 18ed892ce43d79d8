#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace veldrin {

// Minutes count from 1970-01-01 00:00 Universal Time. They may be fractional, because a zone may be
// any fraction of an hour. Days are numbered as in shell/host/Civil.h.

/// A change of a clock.
struct ClockChange {
  double from;    ///< the minute of the change
  double offset;  ///< from then on, in minutes, positive if ahead of Universal Time
};

/// Begin and end of a local day. If the clock is set back past midnight, the day ends twice; `end`
/// is the later one.
struct DaySpan {
  double begin;
  double end;
};

/// The UTC offset of a place's clocks, with its changes.
///
///     const ClockRules berlin(60.0, {{29'586'780.0, 120.0}});  // 2026-03-29 01:00 UTC
///     berlin.offsetAt(29'586'779.0);                           // 60.0
class ClockRules {
 public:
  /// `offset` applies until the first change. The changes must be in order of time.
  explicit ClockRules(double offset, std::vector<ClockChange> changes = {});

  /// The minutes that the clock is ahead of Universal Time at a moment.
  [[nodiscard]] double offsetAt(double minute) const;

  /// The number of the local day to which a moment belongs.
  [[nodiscard]] std::int64_t dayAt(double minute) const;

  /// The span of a local day, or nothing if the clocks skip the day, as in Apia on 2011-12-30.
  [[nodiscard]] std::optional<DaySpan> spanOf(std::int64_t day) const;

  /// The moment at which the clock shows a minute [0:1440] of a day: the first such moment if the
  /// time is repeated, the moment that it would be without the change if it is skipped.
  [[nodiscard]] double momentOf(std::int64_t day, double minuteOfDay) const;

 private:
  /// The time between two changes.
  struct Stretch {
    double from;
    double to;
    double offset;
  };
  [[nodiscard]] Stretch stretch(std::size_t index) const;

  double first_;
  std::vector<ClockChange> changes_;
};

}  // namespace veldrin
