#include "places/Towns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "places/Fold.h"
#include "places/PlaceFault.h"

namespace veldrin {
namespace {

/// What was asked for: the key of a name, and the key of what a town has to lie in, or nothing.
struct Wanted {
  std::string name;
  std::string where;
};

/// The towns that were found, by how their names fit.
struct Found {
  std::vector<Town> begins;
  std::vector<Town> whole;
  bool isEnglish = false;  ///< the name, for at least one of `whole`
};

/// How a key goes on where a name ends that it begins with.
enum class Fit { None, Begins, Whole };

Fit fitOf(std::string_view key, std::string_view name) {
  const auto sameLetter = [](char one, char other) { return keyLetter(one) == other; };
  if (key.size() < name.size()) return Fit::None;
  if (!std::ranges::equal(key.substr(0, name.size()), name, sameLetter)) return Fit::None;
  if (key.size() == name.size()) return Fit::Whole;
  return keyLetter(key[name.size()]) == ' ' ? Fit::Begins : Fit::None;
}

/// Whether the key names the region or the country, or one after the other.
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
  TownRow row;
  // The keys that begin with the words of the name follow it at once, since a blank is before any
  // letter.
  while (takeRow(rows, row)) {
    const Fit fit = fitOf(row.key, wanted.name);
    if (fit == Fit::None || (fit == Fit::Begins && found.isEnglish)) break;
    for (const Town& town : townsOf(row)) {
      if (!wanted.where.empty() && !liesIn(town, wanted.where)) continue;
      (fit == Fit::Whole ? found.whole : found.begins).push_back(town);
      found.isEnglish = found.isEnglish || (fit == Fit::Whole && row.isTown());
    }
  }
  return found;
}

/// The ways to read a text: the name ends at the first comma, at the second, or at the third, since
/// a name may have commas of its own.
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
  const bool joins = !found.begins.empty() &&
                     (towns.empty() || (!found.isEnglish && outweighs(found.begins[0], towns[0])));
  if (joins) {
    towns.insert(towns.end(), found.begins.begin(), found.begins.end());
    sortTowns(towns);
  }
  return towns;
}

}  // namespace veldrin
