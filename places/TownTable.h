#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace veldrin {

/// A town of the table. The texts are views of `townTable()`.
struct Town {
  std::string_view name;  ///< in English
  std::string_view region;
  std::string_view regionCode;  ///< of GeoNames: "IL", "02"
  std::string_view country;
  std::string_view countryCode;  ///< of ISO 3166: "US"
  std::string_view zone;         ///< of the time zone database: "America/Chicago"
  std::uint32_t people;
  double latitude;   ///< degrees, north positive, to four digits
  double longitude;  ///< degrees, east positive, to four digits
};

/// A row of the table: a town, or another name of a town. The key may keep the capitals and hyphens
/// of the English name; `keyLetter` converts these.
struct TownRow {
  std::string_view key;
  std::string_view name;     ///< in English
  std::string_view region;   ///< codes of country and region: "US.IL"
  std::string_view numbers;  ///< people, degrees, zone; empty for another name of a town

  [[nodiscard]] bool isTown() const { return !numbers.empty(); }
};

/// The text of places/towns.tsv, built into the program. The first lines describe the rows.
std::string_view townTable();

/// The rows from the first one whose key is not less than `key` to the end of the table. Found by
/// binary search, so few pages of the program are read.
std::string_view rowsFrom(std::string_view key);

/// Removes the next row from `rows` and returns it; nothing after the last one. Skips the
/// description and the rows of regions.
std::optional<TownRow> takeRow(std::string_view& rows);

/// The town of a row; for another name, each town with this English name in this region.
std::vector<Town> townsOf(const TownRow& row);

/// Sorts towns, largest first, then by name, region and country. Removes repeated towns.
void sortTowns(std::vector<Town>& towns);

/// Converts a letter of an English name for a key: to lower case, and "-" to a blank.
constexpr char keyLetter(char letter) {
  if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter - 'A' + 'a');
  return letter == '-' ? ' ' : letter;
}

}  // namespace veldrin
