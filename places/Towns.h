#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

// Towns by name. A town has its English name and its names in the languages of its country; names
// with the same `fold` are equal. A region, a country or both may follow, by name or by code:
//
//     townNamed("münchen").zone;               // "Europe/Berlin"
//     fullName(townNamed("Springfield, IL"));  // "Springfield, Illinois, US"
//     fullName(townNamed("Freiburg"));         // "Freiburg im Breisgau, Baden-Württemberg, DE"
//     townNamed("Cambridge");                  // throws: there are four
//
// Each function that takes a text throws `PlaceFault` if the text cannot be a name: it has no
// letters, over 300 bytes, a control character, or bytes that are not UTF-8.

/// "Cambridge, England, GB". `townNamed` of this text finds the largest town of this full name.
std::string fullName(const Town& town);

/// Keeps the first of the towns with the same full name.
void dropTwins(std::vector<Town>& towns);

/// Whether a town has at least five times the people of another. A name of both then means the
/// first.
bool outweighs(const Town& town, const Town& other);

/// The towns that a text may mean, in the order of `sortTowns`; empty if there are none. These are
/// the towns with this name or, if there are none, those whose name begins with these words.
/// Returns both if the text is the name in a language of the country only, and a longer name
/// outweighs it: "Freiburg" is the German name of Fribourg, and the beginning of Freiburg im
/// Breisgau.
std::vector<Town> townsNamed(std::string_view text);

/// The same or, if there are none, the towns whose name begins with these letters.
std::vector<Town> townsListed(std::string_view text);

/// The town of a text. If the text may mean several towns, returns the one that outweighs each
/// other town. If towns share a full name, only the largest counts. Throws `PlaceFault` if there is
/// no such town.
Town townNamed(std::string_view text);

}  // namespace veldrin
