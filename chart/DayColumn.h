#pragma once

#include <cstdint>
#include <vector>

#include "chart/Light.h"
#include "civiltime/ClockRules.h"

namespace veldrin {

/// A part of a local day with the same light. It ends where the next stretch begins.
struct BandStretch {
  std::int32_t from;  ///< minute of the day [0:1439]
  Band band;

  bool operator==(const BandStretch&) const = default;
};

/// The stretches of a local day, in order. The first begins at 0, the last ends at 1440, and
/// neighbours have different bands.
using DayColumn = std::vector<BandStretch>;

/// The column of a local day: each minute has the light at its `ClockRules::momentOf`. A skipped
/// minute has the light that it would have without the change, so a skipped day has a column too.
DayColumn dayColumn(const Light& light, const ClockRules& clock, std::int64_t day);

}  // namespace veldrin
