#pragma once

#include "shell/objects/String.h"

namespace veldrin::civiltime {

// A time of day counts hours since local midnight. It is negative if the sunrise or sunset does not
// exist. Times are rounded to the minute; the hours do not wrap at 24.

/// A time of day for display: "06:30", "24:00" for 23.9999, or "N/A" for a negative one.
String HHMMFormat(double x);

/// A time of day as six digits: "063000", or "000000" for a negative one.
String HHMMZZ(double x);

}  // namespace veldrin::civiltime
