#pragma once

#include <span>
#include <string>

#include "chart/DayColumn.h"

namespace veldrin {

/// The area of a band as the data of an SVG path: x counts the columns, y the minutes of the day.
/// The areas of the five bands cover the columns once and do not overlap. Neighbouring stretches
/// share one outline, which keeps the file small and leaves no seam between two days.
std::string bandPath(std::span<const DayColumn> columns, Band band);

}  // namespace veldrin
