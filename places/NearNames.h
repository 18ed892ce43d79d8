#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

/// The edit distance of two texts: the fewest letters to insert, delete or replace. Returns
/// `limit` + 1 for any distance above the limit. V. I. Levenshtein, Binary codes capable of
/// correcting deletions, insertions and reversals, Soviet Physics Doklady 10 (1966).
std::size_t editDistance(std::u32string_view one, std::u32string_view other, std::size_t limit);

/// Up to `most` towns with a key similar to `key`: one letter in three may differ, two at most.
/// They are sorted by edit distance, then as `sortTowns` does, and without twins (`dropTwins`).
std::vector<Town> townsNear(std::string_view key, std::size_t most);

}  // namespace veldrin
