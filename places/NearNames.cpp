#include "places/NearNames.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <utility>

#include "places/Towns.h"
#include "shell/host/PlainText.h"

namespace veldrin {
namespace {

constexpr std::size_t MostEdits = 2;

/// Puts each letter of a key, which is UTF-8, into one element of `letters`.
void readLetters(std::string_view key, std::u32string& letters) {
  letters.clear();
  for (const char byte : key) {
    const char letter = keyLetter(byte);
    const char32_t unit = static_cast<unsigned char>(letter);
    if (continuesCharacter(letter) && !letters.empty()) {
      letters.back() = (letters.back() << 6U) | (unit & 0x3FU);
    } else {
      letters.push_back(unit);
    }
  }
}

}  // namespace

std::size_t editDistance(std::u32string_view one, std::u32string_view other, std::size_t limit) {
  const auto [shorter, longer] = std::minmax({one.size(), other.size()});
  if (longer - shorter > limit) return limit + 1;
  std::vector<std::size_t> costs(other.size() + 1);
  std::iota(costs.begin(), costs.end(), std::size_t{0});
  for (std::size_t row = 1; row <= one.size(); ++row) {
    std::size_t diagonal = std::exchange(costs[0], row);
    std::size_t least = row;
    for (std::size_t column = 1; column <= other.size(); ++column) {
      const std::size_t replaced = diagonal + (one[row - 1] == other[column - 1] ? 0 : 1);
      diagonal = costs[column];
      costs[column] = std::min({replaced, costs[column] + 1, costs[column - 1] + 1});
      least = std::min(least, costs[column]);
    }
    if (least > limit) return limit + 1;
  }
  return std::min(costs.back(), limit + 1);
}

std::vector<Town> townsNear(std::string_view key, std::size_t most) {
  std::u32string wanted;
  readLetters(key, wanted);
  const std::size_t limit = std::min(MostEdits, wanted.size() / 3);
  std::array<std::vector<Town>, MostEdits + 1> byDistance;
  std::u32string letters;
  std::string_view rows = townTable();
  while (const auto row = takeRow(rows)) {
    // A key has no more letters than bytes, so this key is too short.
    if (row->key.size() + limit < wanted.size()) continue;
    readLetters(row->key, letters);
    const std::size_t distance = editDistance(wanted, letters, limit);
    if (distance > limit) continue;
    const std::vector<Town> towns = townsOf(*row);
    byDistance[distance].insert(byDistance[distance].end(), towns.begin(), towns.end());
  }
  std::vector<Town> near;
  for (std::vector<Town>& towns : byDistance) {
    sortTowns(towns);
    near.insert(near.end(), towns.begin(), towns.end());
  }
  dropTwins(near);
  near.resize(std::min(most, near.size()));
  return near;
}

}  // namespace veldrin
