#pragma once

#include <span>
#include <string>

#include "chart/DayColumn.h"

namespace veldrin {

/// The area of a band as the data of an SVG path: x counts the columns, y the minutes of the day.
/// The five areas cover the columns without overlap. Stretches of neighbouring days share an
/// outline: the file is small, and there is no seam between two days.
std::string bandPath(std::span<const DayColumn> columns, Band band);

}  // namespace veldrin
