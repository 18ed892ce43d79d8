#pragma once

#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

/// Throws `PlaceFault` for a text that names no town. The message suggests up to three towns with
/// similar names.
[[noreturn]] void refuseUnknownTown(std::string_view text);

/// Throws `PlaceFault` for a text that may mean several towns. The message lists up to five.
[[noreturn]] void refuseAmbiguousTown(std::string_view text, const std::vector<Town>& towns);

}  // namespace veldrin
