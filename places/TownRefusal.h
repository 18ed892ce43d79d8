#pragma once

#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

/// Throws `PlaceFault` for a text without a town. The sentence has up to three towns whose names
/// are spelled similarly.
[[noreturn]] void refuseUnknownTown(std::string_view text);

/// Throws `PlaceFault` for a text with several towns, of which the sentence has up to five.
[[noreturn]] void refuseAmbiguousTown(std::string_view text, const std::vector<Town>& towns);

}  // namespace veldrin
