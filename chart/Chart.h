#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "almanac/Almanac.h"

namespace veldrin {

/// A year of light at a place as an SVG picture (SVG 1.1, in UTF-8). Days run across. The hours
/// of the local clock run down. Each moment has the colour of its band: night, astronomical,
/// nautical or civil twilight, or day.
///
/// The group `plot` has one path for each band, with the name of the band. Its coordinates are days
/// from January 1 and minutes of the day. The edges of the bands are the events of the almanac. A
/// minute or a day that the clock skips has the light that it would have without the change. A
/// repeated minute has the light of its first moment. The picture loads no other file, and has
/// colours for light and dark pages.
///
/// `zoneName` is for people, such as "Europe/Berlin" or "UTC+1". Calls `yield()` once a day; an
/// exception that it throws passes through.
std::string chart(const Place& place, std::string_view zoneName, const ClockYear& year,
                  const std::function<void()>& yield);

}  // namespace veldrin
