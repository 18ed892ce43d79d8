#pragma once

#include <span>
#include <string>

#include "chart/DayColumn.h"

namespace veldrin {

/// The area of a band as the data of an SVG path: x counts the columns, y the minutes of the day.
/// The five areas cover the columns without overlap. Stretches of neighbouring days that overlap in
/// time share one outline. So the file is small, and no seam shows between two days.
std::string bandPath(std::span<const DayColumn> columns, Band band);

}  // namespace veldrin
