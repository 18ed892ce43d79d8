#include "places/Towns.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "places/Fold.h"
#include "places/PlaceFault.h"
#include "places/TownTable.h"

namespace veldrin::test {
namespace {

/// The full name of the town, or the message of the fault.
std::string answerTo(std::string_view text) {
  try {
    return fullName(townNamed(text));
  } catch (const PlaceFault& fault) {
    return fault.what();
  }
}

std::vector<TownRow> rowsOfTable() {
  std::vector<TownRow> rows;
  std::string_view rest = townTable();
  while (const auto row = takeRow(rest)) rows.push_back(*row);
  return rows;
}

struct Question {
  std::string text;
  std::string answer;
};

TEST(TownsTest, ATextFindsItsTownOrASentenceThatHelps) {
  const std::string tooLong(10'000, 'x');
  const std::vector<Question> questions{
      // English names and names in the languages of the country.
      {"Munich", "Munich, Bavaria, DE"},
      {"München", "Munich, Bavaria, DE"},
      {"Wien", "Vienna, Vienna, AT"},
      {"Warszawa", "Warsaw, Masovian Voivodeship, PL"},
      {"Ginevra", "Geneva, Canton of Geneva, CH"},
      {"Αθήνα", "Athens, Attica, GR"},
      {"Київ", "Kyiv, Kyiv City, UA"},
      {"東京都", "Tokyo, Tokyo, JP"},
      // Case, accents, hyphens, apostrophes, blanks, letters that do not decompose.
      {"  mUNCHEN ", "Munich, Bavaria, DE"},
      {"AIX en  Provence", "Aix-en-Provence, Provence-Alpes-Côte d'Azur Region, FR"},
      {"LAquila", "L’Aquila, Abruzzo, IT"},
      {"L'Aquila", "L’Aquila, Abruzzo, IT"},
      {"lodz", "Lodz, Łódź Voivodeship, PL"},
      {"KØBENHAVN", "Copenhagen, Capital Region, DK"},
      {"Diyarbakır", "Diyarbakır, Diyarbakır, TR"},
      {"İSTANBUL", "Istanbul, Istanbul, TR"},
      // The name and a region or a country.
      {"Springfield, Illinois", "Springfield, Illinois, US"},
      {"springfield,IL,us", "Springfield, Illinois, US"},
      {"Cambridge, GB", "Cambridge, England, GB"},
      {"Cambridge, England, GB", "Cambridge, England, GB"},
      {"Cambridge, ENG, United Kingdom", "Cambridge, England, GB"},
      {"Valencia, ES", "Valencia, Valencia, ES"},
      {"Burgdorf, Hanover", "Burgdorf, Hanover, Lower Saxony, DE"},
      // The whole name, else its first words.
      {"Ho", "Ho, Volta, GH"},
      {"San", "San, Ségou, ML"},
      {"Freiburg", "Freiburg im Breisgau, Baden-Württemberg, DE"},
      {"Freiburg, CH", "Fribourg, Canton of Fribourg, CH"},
      {"San Sebastian, ES", "Donostia / San Sebastian, Basque Country, ES"},
      {"Frankfurt", "Frankfurt am Main, Hesse, DE"},
      // Several towns have the name.
      {"Paris", "Paris, Île-de-France Region, FR"},
      {"Athens", "Athens, Attica, GR"},
      {"Cambridge",
       "\"Cambridge\" may be one of these towns: Cambridge, England, GB; Cambridge, Ontario, CA; "
       "Cambridge, Massachusetts, US; Cambridge, Waikato, NZ."},
      {"Springfield, US",
       "\"Springfield, US\" may be one of these towns: Springfield, Missouri, US; Springfield, "
       "Massachusetts, US; Springfield, Illinois, US; Springfield, Oregon, US; Springfield, Ohio, "
       "US; and 3 more."},
      // No town has the name.
      {"Munch",
       "No town is named \"Munch\"; similar names: Munich, Bavaria, DE; Pūnch, Jammu and "
       "Kashmir, IN; Much, North Rhine-Westphalia, DE."},
      {"Paris, Atlantis",
       "No town is named \"Paris, Atlantis\"; similar names: Paris, Île-de-France Region, FR; "
       "Paris, Texas, US; Parys, Orange Free State, ZA."},
      {"Freibur im Breisgau",
       "No town is named \"Freibur im Breisgau\"; similar names: Freiburg im Breisgau, "
       "Baden-Württemberg, DE."},
      {"xyzzyxx", "No town is named \"xyzzyxx\"."},
      {"Xq", "No town is named \"Xq\"."},
      {std::string(29, 'x') + "яяяяяяяяяяяяяяяяя",
       "No town is named \"" + std::string(29, 'x') + "яяяяяяяяяяяяяяя...\"."},
      // Texts that cannot be names.
      {"", "The name of a town must have letters."},
      {" ,, ", "The name of a town must have letters."},
      {", GB", "The name of a town must have letters."},
      {tooLong, "No town has so long a name."},
      {"Ber\nlin", "The name of a town must be text without control characters."},
      {"Berlin, \x7F", "The name of a town must be text without control characters."},
      {"M\xFCnchen", "The name of a town must be text in UTF-8."},
      {"Berlin, \xE2\x80", "The name of a town must be text in UTF-8."},
  };
  for (const Question& question : questions) {
    EXPECT_EQ(answerTo(question.text), question.answer) << question.text;
  }
}

TEST(TownsTest, ATownHasItsCoordinatesAndThePresentNameOfItsZone) {
  EXPECT_EQ(townNamed("Kyiv").zone, "Europe/Kyiv");
  EXPECT_EQ(townNamed("Pensacola").zone, "America/Chicago");  // Florida has two zones
  const Town santiago = townNamed("Santiago, Chile");
  EXPECT_EQ(santiago.latitude, -33.4569);
  EXPECT_EQ(santiago.longitude, -70.6483);
  EXPECT_EQ(santiago.people, 4837295U);
}

TEST(TownsTest, TheListHasAllTownsOfANameLargestFirst) {
  const auto list = [](const char* text) {
    std::string names;
    for (const Town& town : townsListed(text)) names += fullName(town) + "\n";
    return names;
  };
  // Whole names, else the first words, else the first letters.
  const std::string freiburg =
      "Freiburg im Breisgau, Baden-Württemberg, DE\nFribourg, Canton of Fribourg, CH\n";
  EXPECT_EQ(list("Freiburg"), freiburg);
  EXPECT_EQ(list("Ho"), "Ho, Volta, GH\n");
  EXPECT_EQ(list("Ho Chi"), "Ho Chi Minh City, Ho Chi Minh City, VN\n");
  EXPECT_EQ(list("Freibu"), freiburg);
  // Two towns have this full name.
  EXPECT_EQ(townsListed("Hayes, England, GB").size(), 2U);
  EXPECT_TRUE(townsListed("Atlantis on Sea").empty());
}

TEST(TownsTest, AFullNameFindsItsLargestTown) {
  for (const TownRow& row : rowsOfTable()) {
    if (!row.isTown()) continue;
    const Town town = townsOf(row)[0];
    const Town found = townNamed(fullName(town));
    EXPECT_EQ(fullName(found), fullName(town));
    EXPECT_GE(found.people, town.people) << fullName(town);
  }
}

TEST(TownsTest, TheTableIsSortedAndItsRowsAreWellFormed) {
  std::set<std::string_view> zones;
  std::string before;
  std::size_t towns = 0;
  for (const TownRow& row : rowsOfTable()) {
    // A key is folded, unless it is the name of the town itself.
    const std::string key = fold(row.key);
    EXPECT_TRUE(key == row.key || (row.key.data() == row.name.data() && row.isTown())) << row.key;
    EXPECT_LE(before, key);
    before = key;
    ASSERT_FALSE(townsOf(row).empty()) << row.key;
    if (!row.isTown()) continue;
    const Town town = townsOf(row)[0];
    ++towns;
    EXPECT_EQ(key, fold(town.name));
    EXPECT_THAT(town.countryCode, testing::SizeIs(2));
    EXPECT_FALSE(town.region.empty() || town.regionCode.empty() || town.country.empty());
    EXPECT_LE(std::abs(town.latitude), 90.0);
    EXPECT_LE(std::abs(town.longitude), 180.0);
    zones.insert(town.zone);
  }
  EXPECT_GT(towns, 24'000U);
  for (const std::string_view zone : zones) {
    EXPECT_TRUE(std::filesystem::is_regular_file("/usr/share/zoneinfo/" + std::string(zone)))
        << zone;
  }
}

/// A code point as UTF-8, from U+0080 on.
std::string encoded(char32_t point) {
  const unsigned following = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  std::string text(1, static_cast<char>((0xF0U << (3 - following)) | (point >> 6 * following)));
  for (unsigned byte = following; byte-- > 0;) {
    text += static_cast<char>(0x80U | ((point >> 6 * byte) & 0x3FU));
  }
  return text;
}

TEST(TownsTest, AKeyFoldsToItself) {
  for (char32_t point = 0xA0; point <= 0x1FFFF; point += point == 0xD7FF ? 0x801 : 1) {
    const std::string key = fold("a" + encoded(point) + "b");
    EXPECT_EQ(fold(key), key) << std::hex << static_cast<unsigned>(point);
  }
}

}  // namespace
}  // namespace veldrin::test
