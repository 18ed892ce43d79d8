#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "places/TownTable.h"

namespace veldrin {

// Towns by name. A town is known by its English name and by its names in the languages of its
// country; `fold` decides which names are equal. A region or a country may follow the name, by name
// or by code, or both:
//
//     townNamed("münchen").zone;               // "Europe/Berlin"
//     fullName(townNamed("Springfield, IL"));  // "Springfield, Illinois, US"
//     fullName(townNamed("Freiburg"));         // "Freiburg im Breisgau, Baden-Württemberg, DE"
//     townNamed("Cambridge");                  // throws: there are four

/// "Cambridge, England, GB". As a name this finds the town, or the largest of its full name.
std::string fullName(const Town& town);

/// Keeps only the first of the towns that have the same full name.
void dropTwins(std::vector<Town>& towns);

/// Whether a town is meant in the place of another: it has at least five times the people.
bool outweighs(const Town& town, const Town& other);

/// The towns that a text may mean, most people first, then by name, region and country; none if
/// there are none. These are the towns of the name. If there are none, they are the towns whose
/// name begins with these words. Both count if the text is a name in a language of the country
/// only, and a town whose name begins so outweighs the towns of the name: "Freiburg" is Fribourg in
/// German, and more often Freiburg im Breisgau.
///
/// Throws `PlaceFault` if the text cannot be a name: it has no letters, over 300 bytes, a control
/// character or bytes that are not UTF-8.
std::vector<Town> townsNamed(std::string_view text);

/// The town that a text means: the only one, or the one with at least five times the people of each
/// other. Of towns with the same full name only the largest counts.
///
/// Throws `PlaceFault` with up to five towns to choose from, or with up to three towns whose names
/// are spelled nearly so; and if the text cannot be a name.
Town townNamed(std::string_view text);

}  // namespace veldrin
