#include "places/ZoneFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

#include "places/PlaceFault.h"
#include "places/Zone.h"
#include "places/ZoneHere.h"
#include "tests/support/Programs.h"

namespace veldrin::test {
namespace {

namespace fs = std::filesystem;

const std::string NoName = "There is no time zone of that name.";

/// Sets an environment variable, and unsets it at destruction.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    ::setenv(name, value.c_str(), 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { ::unsetenv(name_); }

 private:
  const char* name_;
};

template <class Call>
std::string resultOf(const Call& call) {
  try {
    return call();
  } catch (const PlaceFault& fault) {
    return fault.what();
  }
}

std::string zoneIn(const ZoneFolder& folder, const std::string& text) {
  return resultOf([&] { return zoneNamed(folder, text, 2026, 2026).name; });
}

std::string write(const fs::path& file, const std::string& bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
  return file;
}

TEST(ZoneFolderTest, FindsNamesInTheSpellingOfUsers) {
  const ZoneFolder folder = ZoneFolder::ofMachine();
  const struct {
    std::string text;
    std::string zone;
  } rows[] = {
      {"Europe/Oslo", "Europe/Oslo"},
      {"eUROPE/oSLO", "Europe/Oslo"},
      {"oslo", "Europe/Oslo"},
      {"America/New York", "America/New_York"},
      {"new york", "America/New_York"},
      {"utc", "UTC"},
      {"etc/gmt+8", "Etc/GMT+8"},
      {"knox", "America/Indiana/Knox"},
      // If several names of a zone fit, the current one is found: only it has a town.
      {"buenos aires", "America/Argentina/Buenos_Aires"},
      {"istanbul", "Europe/Istanbul"},
      {"Eastern", "Several time zones have that name: Canada/Eastern, US/Eastern."},
      {"Oslp", "There is no time zone Oslp."},
      {"posix/Europe/Oslo", "There is no time zone posix/Europe/Oslo."},
      {"localtime", "There is no time zone localtime."},
      {"zone.tab", NoName},
  };
  for (const auto& row : rows) EXPECT_EQ(zoneIn(folder, row.text), row.zone);
}

TEST(ZoneFolderTest, NothingLeadsOutOfTheFolder) {
  const TemporaryFolder temporary;
  const fs::path root = temporary.path / "zones";
  const std::string oslo = ZoneFolder::ofMachine().read("Europe/Oslo");
  write(root / "Europe/Oslo", oslo);
  write(temporary.path / "outside/Secret", oslo);
  fs::create_symlink("Europe/Oslo", root / "Inside");
  fs::create_symlink("../outside/Secret", root / "Linked");
  fs::create_symlink("../outside", root / "Folder");
  fs::create_symlink("Loop", root / "Loop");
  fs::create_symlink("zones", temporary.path / "database");
  ASSERT_EQ(::mkfifo((root / "Pipe").c_str(), 0600), 0);
  write(root / "Text", "no zone");
  write(root / "Empty", "");
  write(root / "Cut", oslo.substr(0, oslo.size() - 2));
  write(root / "Large", oslo + std::string(1'000'000, '\n'));
  for (const char* name : {"A", "B", "C", "D", "E", "F"}) {
    write(root / name / "Twin", oslo + name);
  }
  write(root / "zone1970.tab", "NO\t+5955+01045\tEurope/Oslo\n");

  const ZoneFolder folder(temporary.path / "database");
  const struct {
    std::string text;
    std::string result;
  } rows[] = {
      {"oslo", "Europe/Oslo"},
      {"Inside", "Inside"},
      {"text", "The file of the time zone Text is damaged."},
      {"Empty", "The file of the time zone Empty is damaged."},
      {"Cut", "The file of the time zone Cut is damaged."},
      {"Large", "The file of the time zone Large cannot be read."},
      {"twin",
       "Several time zones have that name: A/Twin, B/Twin, C/Twin, D/Twin, E/Twin and others."},
  };
  for (const auto& row : rows) EXPECT_EQ(zoneIn(folder, row.text), row.result) << row.text;
  for (const char* const text :
       {"Linked", "linked", "Folder/Secret", "secret", "Loop", "Pipe", "Europe"}) {
    EXPECT_EQ(zoneIn(folder, text), "There is no time zone " + std::string(text) + ".");
  }
  for (const std::string& text : std::initializer_list<std::string>{
           "", " ", "..", "../outside/Secret", "Europe/../Europe/Oslo", "Europe//Oslo", "Europe/",
           temporary.path / "outside/Secret", root / "Europe/Oslo", "Oslo\n", "Z\xc3\xbcrich",
           "\xff", std::string("Europe/Oslo\0", 12), std::string(10'000, 'A')}) {
    EXPECT_EQ(zoneIn(folder, text), NoName) << text;
  }
  EXPECT_EQ(folder.placeOf("Europe/Oslo"), (ZonePlace{"Oslo", 59.9167, 10.75}));
}

TEST(ZoneFolderTest, TzdirNamesTheDatabase) {
  const TemporaryFolder temporary;
  const auto oslo = [] {
    return resultOf([] { return ZoneFolder::ofMachine().find("Europe/Oslo"); });
  };
  EXPECT_EQ(oslo(), "Europe/Oslo");
  const std::string missing = "The folder of the time zone database is missing.";
  const struct {
    std::string folder;
    std::string result;
  } rows[] = {{"", "Europe/Oslo"},
              {temporary.path, "There is no time zone Europe/Oslo."},
              {temporary.path / "none", missing},
              {write(temporary.path / "file", "text"), missing},
              {std::string(10'000, 'x'), missing}};
  for (const auto& row : rows) {
    const Variable variable("TZDIR", row.folder);
    EXPECT_EQ(oslo(), row.result) << row.folder;
  }
}

TEST(ZoneFolderTest, PlacesComeFromTheTable) {
  const TemporaryFolder temporary;
  write(temporary.path / "zone.tab",
        "# A remark\n"
        "US\t+404251-0740023\tAmerica/New_York\tEastern\n"
        "AR\t-5448-06818\tAmerica/Argentina/Ushuaia\n"
        "XX\t+9100+00000\tX/North\nXX\t+0000+18001\tX/East\nXX\t+0060+00000\tX/Minutes\n"
        "XX\t+00-1+00000\tX/Sign\nXX\t+000+00000\tX/Short\nXX\t\tX/Empty\nXX\t+0000\tX/Half\n"
        "XX\t+0000+00000");
  const ZoneFolder folder(temporary.path);
  EXPECT_EQ(folder.placeOf("America/New_York"), (ZonePlace{"New York", 40.7142, -74.0064}));
  EXPECT_EQ(folder.placeOf("America/Argentina/Ushuaia"), (ZonePlace{"Ushuaia", -54.8, -68.3}));
  for (const char* name : {"X/North", "X/East", "X/Minutes", "X/Sign", "X/Short", "X/Empty",
                           "X/Half", "", "Etc/UTC"}) {
    EXPECT_FALSE(folder.placeOf(name)) << name;
  }
}

TEST(ZoneHereTest, TzCountsBeforeTheLinkAndTheLinkBeforeTheFile) {
  const TemporaryFolder settings;
  const auto here = [&] { return resultOf([&] { return zoneHere(settings.path); }); };
  EXPECT_EQ(here(), "The name of this computer's time zone is unknown.");
  write(settings.path / "timezone", "Asia/Tokyo\n");
  EXPECT_EQ(here(), "Asia/Tokyo");
  fs::create_symlink("other", settings.path / "localtime");
  EXPECT_EQ(here(), "Asia/Tokyo");
  fs::create_symlink("../usr/share/zoneinfo/Europe/Oslo", settings.path / "other");
  EXPECT_EQ(here(), "Europe/Oslo");
  const struct {
    std::string variable, zone;
  } rows[] = {{"", "UTC"},
              {":", "UTC"},
              {"Asia/Tokyo", "Asia/Tokyo"},
              {":Asia/Tokyo", "Asia/Tokyo"},
              {"/usr/share/zoneinfo/Asia/Tokyo", "Asia/Tokyo"},
              {"CET-1CEST,M3.5.0,M10.5.0/3", "There is no time zone of that name."},
              {"/etc/passwd", "There is no time zone of that name."}};
  for (const auto& row : rows) {
    const Variable variable("TZ", row.variable);
    EXPECT_EQ(zoneIn(ZoneFolder::ofMachine(), "here"), row.zone) << row.variable;
  }
}

}  // namespace
}  // namespace veldrin::test
