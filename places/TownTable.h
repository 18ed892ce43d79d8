#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace veldrin {

/// A town of the table. The texts are parts of the program and live as long.
struct Town {
  std::string_view name;  ///< in English
  std::string_view region;
  std::string_view regionCode;  ///< as GeoNames has it: "IL", "02"
  std::string_view country;
  std::string_view countryCode;  ///< of ISO 3166: "US"
  std::string_view zone;         ///< of the time zone database: "America/Chicago"
  std::uint32_t people;
  double latitude;   ///< degrees, north positive, to four digits
  double longitude;  ///< degrees, east positive, to four digits
};

/// A row of the table: a town, or another name of a town. The key may be written as an English
/// name, so its letters have to pass through `keyLetter`.
struct TownRow {
  std::string_view key;
  std::string_view name;     ///< in English
  std::string_view region;   ///< its codes: "US.IL"
  std::string_view numbers;  ///< the rest of the row; empty for another name

  [[nodiscard]] bool isTown() const { return !numbers.empty(); }
};

/// The text of places/towns.tsv, which is built into the program. Its head says what a row holds.
std::string_view townTable();

/// The table from its first row whose key is not before a key. This is a binary search in the text,
/// so that a look-up reads few pages of the program.
std::string_view rowsFrom(std::string_view key);

/// Takes the next row off rows, past those of the head and of regions; false after the last one.
bool takeRow(std::string_view& rows, TownRow& row);

/// The towns that a row tells of. Another name is one of all towns that have the English name in
/// the region.
std::vector<Town> townsOf(const TownRow& row);

/// Puts towns in the order of every list: most people first, then by name, region and country.
/// Drops repetitions.
void sortTowns(std::vector<Town>& towns);

/// The letter of a key for a letter of an English name, which may be written in its place.
constexpr char keyLetter(char letter) {
  if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter - 'A' + 'a');
  return letter == '-' ? ' ' : letter;
}

}  // namespace veldrin
