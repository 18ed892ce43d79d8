#include "civiltime/ClockRules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "shell/host/Civil.h"

namespace veldrin {

ClockRules::ClockRules(double offset, std::vector<ClockChange> changes)
    : initialOffset_(offset), changes_(std::move(changes)) {}

double ClockRules::offsetAt(double moment) const {
  const auto next = std::ranges::upper_bound(changes_, moment, {}, &ClockChange::from);
  return next == changes_.begin() ? initialOffset_ : std::prev(next)->offset;
}

std::int64_t ClockRules::dayAt(double moment) const {
  return static_cast<std::int64_t>(std::floor((moment + offsetAt(moment)) / MinutesOfDay));
}

ClockRules::Stretch ClockRules::stretch(std::size_t index) const {
  const double infinity = std::numeric_limits<double>::infinity();
  return {index == 0 ? -infinity : changes_[index - 1].from,
          index == changes_.size() ? infinity : changes_[index].from,
          index == 0 ? initialOffset_ : changes_[index - 1].offset};
}

std::optional<DaySpan> ClockRules::spanOf(std::int64_t day) const {
  std::optional<DaySpan> span;
  for (std::size_t index = 0; index <= changes_.size(); ++index) {
    const auto [from, to, offset] = stretch(index);
    const double begin = std::max(from, static_cast<double>(day * MinutesOfDay) - offset);
    const double end = std::min(to, static_cast<double>((day + 1) * MinutesOfDay) - offset);
    if (begin < end) span = DaySpan{span ? span->begin : begin, end};
  }
  return span;
}

double ClockRules::momentOf(std::int64_t day, double minuteOfDay) const {
  const double shown = static_cast<double>(day * MinutesOfDay) + minuteOfDay;
  double skipped = shown - initialOffset_;
  for (std::size_t index = 0; index <= changes_.size(); ++index) {
    const auto [from, to, offset] = stretch(index);
    const double moment = shown - offset;
    if (moment < from) break;
    if (moment < to) return moment;
    skipped = moment;
  }
  return skipped;
}

}  // namespace veldrin
