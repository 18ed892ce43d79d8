#include "chart/BandPath.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "shell/host/Civil.h"

namespace veldrin {
namespace {

struct Interval {
  std::int32_t top;
  std::int32_t bottom;
};

/// Intervals of consecutive columns; each overlaps the next.
struct Ribbon {
  std::size_t firstColumn;
  std::vector<Interval> intervals;

  [[nodiscard]] std::size_t end() const { return firstColumn + intervals.size(); }
  [[nodiscard]] bool continuesIn(std::size_t column, const Interval& next) const {
    const Interval& last = intervals.back();
    return end() == column && last.top < next.bottom && next.top < last.bottom;
  }
};

std::vector<Interval> intervalsOf(const DayColumn& column, Band band) {
  std::vector<Interval> intervals;
  for (auto stretch = column.begin(); stretch != column.end(); ++stretch) {
    const auto next = stretch + 1;
    const std::int32_t end = next == column.end() ? MinutesOfDay : next->from;
    if (stretch->band == band) intervals.push_back({stretch->from, end});
  }
  return intervals;
}

std::vector<Ribbon> ribbonsOf(std::span<const DayColumn> columns, Band band) {
  std::vector<Ribbon> ribbons;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    for (const Interval& interval : intervalsOf(columns[column], band)) {
      const auto continues = [&](const Ribbon& r) { return r.continuesIn(column, interval); };
      const auto ribbon = std::ranges::find_if(ribbons, continues);
      if (ribbon == ribbons.end()) {
        ribbons.push_back({column, {interval}});
      } else {
        ribbon->intervals.push_back(interval);
      }
    }
  }
  return ribbons;
}

/// Appends the y coordinates of one side of a ribbon. `step` is 1 to the right, -1 to the left.
void appendSide(std::string& path, const std::vector<std::int32_t>& ys, int step) {
  int run = 0;
  std::int32_t y = ys.front();
  for (const std::int32_t next : ys) {
    if (next != y) {
      path += 'h' + std::to_string(run) + 'v' + std::to_string(next - y);
      run = 0;
      y = next;
    }
    run += step;
  }
  path += 'h' + std::to_string(run);
}

/// Appends the tops of a ribbon from left to right, then its bottoms from right to left.
void appendOutline(std::string& path, const Ribbon& ribbon) {
  std::vector<std::int32_t> tops;
  std::vector<std::int32_t> bottoms;
  for (const Interval& interval : ribbon.intervals) {
    tops.push_back(interval.top);
    bottoms.push_back(interval.bottom);
  }
  std::ranges::reverse(bottoms);
  path += 'M' + std::to_string(ribbon.firstColumn) + ' ' + std::to_string(tops.front());
  appendSide(path, tops, 1);
  path += 'v' + std::to_string(bottoms.front() - tops.back());
  appendSide(path, bottoms, -1);
  path += 'z';
}

}  // namespace

std::string bandPath(std::span<const DayColumn> columns, Band band) {
  std::string path;
  for (const Ribbon& ribbon : ribbonsOf(columns, band)) appendOutline(path, ribbon);
  return path;
}

}  // namespace veldrin
