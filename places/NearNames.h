#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

/// The edit distance of two texts: the fewest letters to insert, delete or replace. Any distance
/// above the limit is given as the limit and one. V. I. Levenshtein, Binary codes capable of
/// correcting deletions, insertions and reversals, Soviet Physics Doklady 10 (1966).
std::size_t editDistance(std::u32string_view one, std::u32string_view other, std::size_t limit);

/// Up to `most` towns with a key that is spelled nearly like a key, each in the place of its twins:
/// the nearest first, then in the order of `sortTowns`. One letter in three may differ, two at
/// most.
std::vector<Town> townsNear(std::string_view key, std::size_t most);

}  // namespace veldrin
