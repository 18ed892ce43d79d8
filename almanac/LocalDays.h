#pragma once

#include <cstdint>
#include <vector>

#include "daystatus/Veldrin.h"

namespace veldrin {

/// A day by the clocks of the place. Its ends are minutes since 1970-01-01 00:00 Universal Time,
/// not always whole ones, since a zone may be any fraction of hours.
struct LocalDay {
  std::int64_t number;  ///< as in shell/Civil.h
  double begin;
  double end;  ///< where the next day begins
};

/// The days from January 1 to December 31 of the year in the window's chooser, by the zone and the
/// daylight saving that stand in its fields. At a midnight the clocks still go as on the day that
/// ends, so a day on which daylight saving begins or ends is an hour shorter or longer.
std::vector<LocalDay> localDays(const Ref<Veldrin>& window);

}  // namespace veldrin
