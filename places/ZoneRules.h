#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "civiltime/ClockRules.h"

namespace veldrin {

/// The rules of a zone file from 40 days before the first year to 40 days after the last year;
/// nothing if the file is damaged. Times after the last change in the file follow its footer.
/// Throws `PlaceFault` in a program that was built without the library that reads such files.
std::optional<ClockRules> zoneRules(std::string_view file, std::int64_t firstYear,
                                    std::int64_t lastYear);

}  // namespace veldrin
