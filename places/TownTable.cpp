#include "places/TownTable.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <tuple>

#include "places/Fold.h"

// The assembler copies the file into the program; to compile it as a literal would take seconds.
asm(".pushsection .rodata\n"
    "veldrin_towns:\n"
    ".incbin \"" VELDRIN_TOWNS
    "\"\n"
    "veldrin_towns_end:\n"
    ".byte 0\n"
    ".globl veldrin_towns, veldrin_towns_end\n"
    ".popsection\n");

extern "C" {
extern const char veldrin_towns[];
extern const char veldrin_towns_end[];
}

namespace veldrin {
namespace {

/// Removes the text up to a separator, and the separator. Returns that text.
std::string_view takeField(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view field = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return field;
}

template <typename Number>
Number takeNumber(std::string_view& text) {
  const std::string_view field = takeField(text, '\t');
  Number number{};
  std::from_chars(field.data(), field.data() + field.size(), number);
  return number;
}

/// Removes the key from a row and returns it. If it is empty, returns the name, which stays.
std::string_view takeKey(std::string_view& row) {
  const std::string_view key = takeField(row, '\t');
  return key.empty() ? row.substr(0, row.find('\t')) : key;
}

/// Whether a key sorts before another, by the bytes that `keyLetter` returns.
bool isBefore(std::string_view one, std::string_view other) {
  const auto value = [](char letter) { return static_cast<unsigned char>(keyLetter(letter)); };
  return std::ranges::lexicographical_compare(one, other, {}, value, value);
}

/// The town of a row; requires `row.isTown()`.
Town townOf(const TownRow& row) {
  std::string_view rows = rowsFrom("@" + std::string(row.region));
  std::string_view regionRow = takeField(rows, '\n');
  takeField(regionRow, '\t');
  std::string_view codes = row.region;
  std::string_view numbers = row.numbers;
  Town town{};
  town.name = row.name;
  town.region = takeField(regionRow, '\t');
  town.countryCode = takeField(codes, '.');
  town.regionCode = codes;
  town.country = takeField(regionRow, '\t');
  town.people = takeNumber<std::uint32_t>(numbers);
  town.latitude = takeNumber<double>(numbers);
  town.longitude = takeNumber<double>(numbers);
  town.zone = numbers.empty() ? regionRow : numbers;
  return town;
}

}  // namespace

std::string_view townTable() {
  return {veldrin_towns, static_cast<std::size_t>(veldrin_towns_end - veldrin_towns)};
}

std::string_view rowsFrom(std::string_view key) {
  const std::string_view table = townTable();
  std::size_t first = 0;
  std::size_t last = table.size();
  while (first < last) {
    const std::size_t middle = first + (last - first) / 2;
    const std::size_t begin = middle == 0 ? 0 : table.rfind('\n', middle - 1) + 1;
    const std::size_t end = table.find('\n', middle);
    std::string_view row = table.substr(begin);
    if (isBefore(takeKey(row), key)) {
      first = end + 1;
    } else {
      last = begin;
    }
  }
  return table.substr(first);
}

std::optional<TownRow> takeRow(std::string_view& rows) {
  while (!rows.empty()) {
    std::string_view line = takeField(rows, '\n');
    if (line.starts_with('#') || line.starts_with('@')) continue;
    TownRow row;
    row.key = takeKey(line);
    row.name = takeField(line, '\t');
    row.region = takeField(line, '\t');
    row.numbers = line;
    return row;
  }
  return std::nullopt;
}

std::vector<Town> townsOf(const TownRow& row) {
  if (row.isTown()) return {townOf(row)};
  std::vector<Town> towns;
  const std::string key = fold(row.name);
  std::string_view rows = rowsFrom(key);
  for (auto other = takeRow(rows); other && !isBefore(key, other->key); other = takeRow(rows)) {
    if (other->isTown() && other->name == row.name && other->region == row.region) {
      towns.push_back(townOf(*other));
    }
  }
  return towns;
}

void sortTowns(std::vector<Town>& towns) {
  // Different towns may be equal in all else, but not in the address of the name.
  const auto order = [](const Town& town) {
    return std::tuple(~town.people, town.name, town.region, town.countryCode, town.name.data());
  };
  std::ranges::sort(towns, {}, order);
  const auto isRepeated = [](const Town& one, const Town& other) {
    return one.name.data() == other.name.data();
  };
  towns.erase(std::unique(towns.begin(), towns.end(), isRepeated), towns.end());
}

}  // namespace veldrin
