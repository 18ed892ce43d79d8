#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "almanac/Almanac.h"

namespace veldrin {

/// The daylight of a year at a place as a picture (SVG 1.1, in UTF-8). Days run from left to right,
/// the hours of the local clock from top to bottom. Each moment has the colour of its band: night,
/// astronomical, nautical or civil twilight, or day.
///
/// The group `plot` has one path for each band; the id of the path is the name of the band. The
/// coordinates are days from January 1 and minutes of the day. The bands change at the times of the
/// almanac's events. A minute or a day that the clock skips has the light that it would have
/// without the change. A repeated minute has the light of its first occurrence. The picture loads
/// no other file, and has colours for light and dark pages.
///
/// `zoneName` is shown to the user, such as "Europe/Berlin" or "UTC+1". `yield()` is called once
/// for each day; its exceptions pass through.
std::string chart(const Place& place, std::string_view zoneName, const ClockYear& year,
                  const std::function<void()>& yield);

}  // namespace veldrin
