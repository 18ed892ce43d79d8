#pragma once

#include <cstdint>
#include <vector>

#include "chart/Light.h"
#include "civiltime/ClockRules.h"

namespace veldrin {

/// A stretch of one light in a local day, from a minute [0:1439] of its clock to the next stretch.
struct BandStretch {
  std::int32_t from;
  Band band;

  bool operator==(const BandStretch&) const = default;
};

/// A local day as the clock of the place shows it: stretches in order. The first one begins at 0,
/// the last one ends at 1440, and neighbours differ.
using DayColumn = std::vector<BandStretch>;

/// The column of a local day: the light of each minute at `ClockRules::momentOf` it. A skipped
/// minute has the light that it would have had without the change, and a repeated minute that of
/// its first moment. So a day that the clock skips has a column too.
DayColumn dayColumn(const Light& light, const ClockRules& clock, std::int64_t day);

}  // namespace veldrin
