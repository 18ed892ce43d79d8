#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

// Finds towns by name, in English or in a language of the town's country. Names with the same
// `fold` are equal. A comma and a region, a country or both may follow, by name or by code:
//
//     townNamed("münchen").zone;               // "Europe/Berlin"
//     fullName(townNamed("Springfield, IL"));  // "Springfield, Illinois, US"
//     fullName(townNamed("Freiburg"));         // "Freiburg im Breisgau, Baden-Württemberg, DE"
//     townNamed("Cambridge");                  // throws: four towns
//
// Each function that takes a text throws `PlaceFault` if the text cannot be a name: it has over 300
// bytes, no letter or digit before the first comma, a control character, or bytes not in UTF-8.

/// "Cambridge, England, GB". `townNamed` with this text finds the largest town with this full name.
std::string fullName(const Town& town);

/// Keeps only the first of the towns that share a full name.
void dropTwins(std::vector<Town>& towns);

/// Whether a town has at least five times as many people as another. Then a name that both have
/// means the larger town.
bool outweighs(const Town& town, const Town& other);

/// The towns that a text may mean, in the order of `sortTowns`; empty if there are none. These are
/// the towns with this name or, if there are none, the towns whose name begins with these words.
/// Returns both kinds if the text is not an English name, and a town with a longer name outweighs
/// the others: "Freiburg" is the German name of Fribourg, and the beginning of Freiburg im
/// Breisgau.
std::vector<Town> townsNamed(std::string_view text);

/// `townsNamed` or, if it is empty, the towns whose name begins with these letters.
std::vector<Town> townsListed(std::string_view text);

/// The town that a text means. Of several towns in `townsNamed`, this is the town with this full
/// name, else the town that outweighs all others. Of towns that share a full name, only the largest
/// counts. Throws `PlaceFault` if there is no such town.
Town townNamed(std::string_view text);

}  // namespace veldrin
