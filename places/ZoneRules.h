#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "civiltime/ClockRules.h"

namespace veldrin {

/// The rules of a zone file from some weeks before the first of the years to some weeks after the
/// last; nothing if the file is damaged. Years that the file does not reach follow its last rule.
/// Throws `PlaceFault` in a program that was built without the library that reads such files.
std::optional<ClockRules> zoneRules(std::string_view file, std::int64_t firstYear,
                                    std::int64_t lastYear);

}  // namespace veldrin
