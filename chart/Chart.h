#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "almanac/Almanac.h"

namespace veldrin {

/// A year of light at a place as an SVG picture (SVG 1.1, in UTF-8): days across, the hours of the
/// place's clock down, and the five bands night, astronomical, nautical and civil twilight, and
/// day.
///
/// The group `plot` has a path of that name for each band, in days from January 1 and minutes of
/// the day. The edge of a band is an event of the almanac. A skipped minute, or a whole skipped
/// day, shows the light of the moment that it would have been without the change of the clock; a
/// repeated minute shows its first moment. The picture needs nothing from outside, and has colours
/// for a light and a dark surrounding.
///
/// `zoneName` is for people, such as "Europe/Berlin" or "UTC+1". `yield()` is called once for each
/// day; what it throws passes through.
std::string chart(const Place& place, std::string_view zoneName, const ClockYear& year,
                  const std::function<void()>& yield);

}  // namespace veldrin
