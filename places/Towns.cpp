#include "places/Towns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "places/Fold.h"
#include "places/PlaceFault.h"
#include "places/TownRefusal.h"

namespace veldrin {
namespace {

/// The keys of a wanted town: its name, and its region, country or both (may be empty).
struct Wanted {
  std::string name;
  std::string where;
};

/// The towns found: in `whole` with exactly the wanted name, in `begins` with more words after it.
struct Found {
  std::vector<Town> begins;
  std::vector<Town> whole;
  bool isEnglish = false;  ///< whether a town in `whole` has the wanted name in English
};

/// Which part of a key a name matches: none, its first letters, its first words, or the whole key.
enum class Fit { None, Letters, Words, Whole };

Fit fitOf(std::string_view key, std::string_view name) {
  const auto sameLetter = [](char one, char other) { return keyLetter(one) == other; };
  if (key.size() < name.size()) return Fit::None;
  if (!std::ranges::equal(key.substr(0, name.size()), name, sameLetter)) return Fit::None;
  if (key.size() == name.size()) return Fit::Whole;
  return keyLetter(key[name.size()]) == ' ' ? Fit::Words : Fit::Letters;
}

/// Whether `where` is the key of the region, of the country, or of both in this order.
bool liesIn(const Town& town, std::string_view where) {
  const std::array regions{fold(town.region), fold(town.regionCode)};
  const std::array countries{fold(town.country), fold(town.countryCode)};
  const auto isWhere = [where](const std::string& key) { return key == where; };
  if (std::ranges::any_of(regions, isWhere) || std::ranges::any_of(countries, isWhere)) return true;
  return std::ranges::any_of(regions, [&](const std::string& region) {
    return std::ranges::any_of(
        countries, [&](const std::string& country) { return isWhere(region + " " + country); });
  });
}

Found search(const Wanted& wanted) {
  Found found;
  std::string_view rows = rowsFrom(wanted.name);
  // A blank sorts before any letter: "new", "new york", "newark". So stop at the first `Letters`.
  while (const auto row = takeRow(rows)) {
    const Fit fit = fitOf(row->key, wanted.name);
    if (fit < Fit::Words || (fit == Fit::Words && found.isEnglish)) break;
    for (const Town& town : townsOf(*row)) {
      if (!wanted.where.empty() && !liesIn(town, wanted.where)) continue;
      (fit == Fit::Whole ? found.whole : found.begins).push_back(town);
      found.isEnglish = found.isEnglish || (fit == Fit::Whole && row->isTown());
    }
  }
  return found;
}

/// The towns whose name begins with these letters.
std::vector<Town> townsBeginning(std::string_view letters) {
  std::vector<Town> towns;
  std::string_view rows = rowsFrom(letters);
  for (auto row = takeRow(rows); row && fitOf(row->key, letters) != Fit::None;
       row = takeRow(rows)) {
    const std::vector<Town> found = townsOf(*row);
    towns.insert(towns.end(), found.begin(), found.end());
  }
  sortTowns(towns);
  return towns;
}

/// The possible meanings of a text, three at most. A name may contain commas, so it may end at each
/// comma, or at the end of the text.
std::vector<Wanted> readingsOf(std::string_view text) {
  constexpr std::size_t MostBytes = 300;
  constexpr std::size_t MostReadings = 3;
  if (fold(text.substr(0, text.find(','))).empty()) {
    throw PlaceFault("The name of a town must have letters.");
  }
  if (text.size() > MostBytes) throw PlaceFault("No town has so long a name.");
  std::vector<Wanted> readings;
  for (std::size_t end = 0; end < text.size() && readings.size() < MostReadings; ++end) {
    end = std::min(text.find(',', end), text.size());
    const std::string_view where = text.substr(std::min(end + 1, text.size()));
    readings.push_back({fold(text.substr(0, end)), fold(where)});
  }
  return readings;
}

}  // namespace

std::string fullName(const Town& town) {
  std::string text(town.name);
  text.append(", ").append(town.region).append(", ").append(town.countryCode);
  return text;
}

bool outweighs(const Town& town, const Town& other) {
  constexpr std::uint64_t Factor = 5;
  return town.people >= Factor * other.people;
}

std::vector<Town> townsNamed(std::string_view text) {
  Found found;
  for (const Wanted& wanted : readingsOf(text)) {
    Found next = search(wanted);
    if (!next.whole.empty() || found.begins.empty()) found = std::move(next);
    if (!found.whole.empty()) break;
  }
  sortTowns(found.whole);
  sortTowns(found.begins);
  std::vector<Town> towns = std::move(found.whole);
  const bool hasBegins =
      !found.begins.empty() &&
      (towns.empty() || (!found.isEnglish && outweighs(found.begins[0], towns[0])));
  if (hasBegins) {
    towns.insert(towns.end(), found.begins.begin(), found.begins.end());
    sortTowns(towns);
  }
  return towns;
}

std::vector<Town> townsListed(std::string_view text) {
  std::vector<Town> towns = townsNamed(text);
  if (towns.empty()) towns = townsBeginning(fold(text));
  return towns;
}

void dropTwins(std::vector<Town>& towns) {
  std::vector<std::string> names;
  std::erase_if(towns, [&names](const Town& town) {
    const bool isTwin = std::ranges::find(names, fullName(town)) != names.end();
    names.push_back(fullName(town));
    return isTwin;
  });
}

Town townNamed(std::string_view text) {
  std::vector<Town> towns = townsNamed(text);
  if (towns.empty()) refuseUnknownTown(text);
  for (const Town& town : towns) {
    if (fullName(town) == text) return town;
  }
  dropTwins(towns);
  const bool isClear = towns.size() == 1 || outweighs(towns[0], towns[1]);
  if (!isClear) refuseAmbiguousTown(text, towns);
  return towns[0];
}

}  // namespace veldrin
