#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace veldrin {

/// A town of the table. The texts are views of the program's own memory.
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

/// A row of the table: a town, or another name of a town. The key may be spelled like the English
/// name; `keyLetter` makes its letters those of a key.
struct TownRow {
  std::string_view key;
  std::string_view name;     ///< in English
  std::string_view region;   ///< codes of country and region: "US.IL"
  std::string_view numbers;  ///< the rest of the row; empty for another name of a town

  [[nodiscard]] bool isTown() const { return !numbers.empty(); }
};

/// The text of places/towns.tsv, a part of the program. Its head describes the rows.
std::string_view townTable();

/// The end of the table that begins with the first row whose key is not less than `key`. A binary
/// search in the text, which reads few pages of the program.
std::string_view rowsFrom(std::string_view key);

/// Removes the next row from `rows` and returns it; nothing after the last one. Skips the rows of
/// the head and of regions.
std::optional<TownRow> takeRow(std::string_view& rows);

/// The towns of a row. Another name belongs to each town with this English name in this region.
std::vector<Town> townsOf(const TownRow& row);

/// Sorts towns, largest first, then by name, region and country. Drops repetitions.
void sortTowns(std::vector<Town>& towns);

/// The letter of a key for a letter of an English name in its place.
constexpr char keyLetter(char letter) {
  if (letter >= 'A' && letter <= 'Z') return static_cast<char>(letter - 'A' + 'a');
  return letter == '-' ? ' ' : letter;
}

}  // namespace veldrin
