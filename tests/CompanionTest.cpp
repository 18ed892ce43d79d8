#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bare/Bare.h"
#include "tests/support/Documents.h"

namespace veldrin::test {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;
using Names = std::vector<std::string>;

struct Outcome {
  int status;  ///< of the exit; -1 where a signal ended it
  std::string output;
  std::string errors;
};

/// Runs the program in an empty folder of its own, without the zone and the locale of whoever runs
/// the tests.
class CompanionTest : public testing::Test {
 protected:
  CompanionTest() {
    std::string name = (std::filesystem::temp_directory_path() / "veldrin-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    root = name;
    folder = root / "work";
    std::filesystem::create_directory(folder);
  }
  ~CompanionTest() override { std::filesystem::remove_all(root); }

  /// Runs a shell's script in which "$@" is the program with the options, under environment
  /// variables set as in "TZ=UTC0".
  Outcome run(const std::string& options, const std::string& settings = "",
              const std::string& script = "\"$@\"") const {
    std::string command = "cd " + folder.string() + "; unset TZ LANG LC_ALL LC_TIME LOCPATH; ";
    if (!settings.empty()) command += "export " + settings + "; ";
    command += "set -- '" VELDRIN_CALENDAR "' " + options;
    const int status =
        std::system((command + "; { " + script + "\n} >../output 2>../errors").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(root / "output"),
            readFile(root / "errors")};
  }

  Names files() const {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  std::string made(const std::string& name) const { return readFile(folder / name); }

  std::filesystem::path root;
  std::filesystem::path folder;
};

const std::string In2008 = "--year=2008 --latitude=47.5 --longitude=-122.5 --time-zone=-8 ";

std::int64_t linesOf(const std::string& text) {
  return std::ranges::count(text, '\n');
}

TEST_F(CompanionTest, WritesTheGoldenDocumentToTheFileOrToStandardOutput) {
  const std::string expected = golden("default-2008.ics");
  EXPECT_EQ(linesOf(expected), 2927);
  const Outcome toOutput = run(In2008 + "--output=-");
  EXPECT_EQ(toOutput.status, 0);
  EXPECT_EQ(toOutput.errors, "");
  EXPECT_EQ(firstDifference(toOutput.output, expected), "");
  EXPECT_EQ(files(), Names{});

  std::ofstream(folder / "Veldrin.ics") << std::string(100'000, '?');
  const Outcome toFile = run(In2008);
  EXPECT_EQ(toFile.status, 0);
  EXPECT_EQ(toFile.output + toFile.errors, "");
  EXPECT_EQ(firstDifference(made("Veldrin.ics"), expected), "");
  EXPECT_EQ(files(), Names{"Veldrin.ics"});
}

TEST_F(CompanionTest, EachOptionReachesItsField) {
  constexpr bare::Place Usual{47.5, -122.5, -8.0};
  const auto usual = [](std::int32_t year) {
    return bare::Saving{true, false, bare::firstBound(year), bare::lastBound(year)};
  };
  const struct {
    const char* options;
    bare::Place place;
    std::int32_t year;
    bare::Saving saving;
  } rows[] = {
      {"--year 2030 --longitude -122.5 --time-zone -8 --dst", Usual, 2030, usual(2030)},
      {"--year=2030 --no-dst --time-zone=-8", Usual, 2030, {}},
      {"--year=2030 --down-under --dst-start=2030-04-07 --dst-end=10/6/2030 --latitude=-33.87 "
       "--longitude=151.21 --time-zone=10",
       {-33.87, 151.21, 10.0},
       2030,
       {true, true, bare::Civil{2030, 4, 7}, bare::Civil{2030, 10, 6}}},
      {"--year=1 --latitude=-90 --longitude=180 --time-zone=24", {-90, 180, 24}, 1, usual(1)},
      {"--year=9999 --latitude=2e1 --time-zone=5.75", {20, -122.5, 5.75}, 9999, usual(9999)},
  };
  for (const auto& row : rows) {
    const Outcome outcome = run(row.options + std::string(" --output='a b.ics'"));
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    std::string expected;
    bare::writeYear(row.place, row.saving, row.year,
                    [&](std::string_view line) { expected += line; });
    EXPECT_EQ(firstDifference(made("a b.ics"), expected), "") << row.options;
  }
}

TEST_F(CompanionTest, StatusPrintsTheDayInThreeLines) {
  const struct {
    std::string options, expected;
  } rows[] = {{"--no-dst --status=2024-06-21", "6/21/2024\nSunrise = 04:13\nSunset = 20:11\n"},
              // The bounds are those of the day's year, whatever other year is given.
              {"--status 6/21/2024 --year=2012", "6/21/2024\nSunrise = 05:13\nSunset = 21:11\n"},
              {"--status=2008-06-21 --year=2012", "6/21/2008\nSunrise = 05:13\nSunset = 21:11\n"},
              {"--status=12/21/24 --down-under", "12/21/2024\nSunrise = 08:55\nSunset = 17:21\n"},
              {"--status=2024-12-21 --latitude=70", "12/21/2024\nSunrise = N/A\nSunset = N/A\n"}};
  for (const auto& row : rows) {
    const Outcome outcome = run(row.options + " --time-zone=-8");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, row.expected);
    EXPECT_EQ(outcome.errors, "");
  }
  EXPECT_EQ(files(), Names{});
}

TEST_F(CompanionTest, BadOptionsAreOneSentenceAndNoFile) {
  std::istringstream rows(
      "--latitude=abc|--latitude=|--latitude=90.01|--latitude=1e999|--latitude=47.5x|--latitude|"
      "--longitude=-180.5|--time-zone=24.1|--year=0|--year=10000|--year=2008.5|"
      "--year=2008 --year=2009|--dst-start=today|--dst-end=2007-02-29|--status=13/1/2024|"
      "--status=0000-06-21|--status=10000-06-21|--output=|--altitude=5|stray|-x|"
      "--down-under=perhaps|--year=" +
      std::string(100'000, '9'));
  for (std::string options; std::getline(rows, options, '|');) {
    SCOPED_TRACE(options.substr(0, 40));
    const Outcome outcome = run(options);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(linesOf(outcome.errors), 1) << outcome.errors;
    // What was wrong is named, and a long text is not said in full.
    EXPECT_THAT(outcome.errors, HasSubstr(options.substr(0, options.find_first_of("= "))));
    EXPECT_LT(outcome.errors.size(), 300U);
    EXPECT_EQ(files(), Names{});
  }
}

TEST_F(CompanionTest, AFileThatCannotBeMadeIsTold) {
  const std::string longName(300, 'x');
  for (const std::string& path :
       {folder.string(), (folder / "missing/x.ics").string(), (folder / longName).string()}) {
    const Outcome outcome = run("--output=" + path);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "Cannot write to " + path + "\n");
    EXPECT_EQ(files(), Names{});
  }
}

TEST_F(CompanionTest, AWriteThatFailsIsToldAndTheLinesBeforeStay) {
  // The program starts when its reader has gone.
  const char* const toNobody = "mkfifo ../gone; : <../gone & exec 4>../gone; wait; \"$@\" >&4";
  const struct {
    std::string script, options, place;
  } rows[] = {{"\"$@\"", In2008 + "--output=/dev/full", "/dev/full"},
              {"\"$@\" >/dev/full", In2008 + "--output=-", "standard output"},
              {"\"$@\" >&-", In2008 + "--output=-", "standard output"},
              {"\"$@\" >/dev/full", "--status=2024-06-21", "standard output"},
              {toNobody, In2008 + "--output=-", "standard output"},
              {"ulimit -f 8; \"$@\"", In2008, "Veldrin.ics"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.script << ' ' << row.options);
    const Outcome outcome = run(row.options, "", row.script);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(linesOf(outcome.errors), 1) << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(row.place));
  }
  // The limit is 4 KiB, and a line has 42 characters at most.
  const std::string begun = made("Veldrin.ics");
  EXPECT_TRUE(begun.size() > 4096 - 44 && begun.size() <= 4096) << begun.size();
  EXPECT_THAT(golden("default-2008.ics"), StartsWith(begun));
}

TEST_F(CompanionTest, AGermanDesktopChangesTheDateFormAndNoByteOfTheCalendar) {
  const char* const folders = std::getenv("LOCPATH");
  // The C library's newlocale loses the list that it makes of LOCPATH, which is no fault of ours.
  const std::string german = "LC_ALL=de_DE.UTF-8 LSAN_OPTIONS=detect_leaks=0" +
                             (folders == nullptr ? "" : std::string(" LOCPATH=") + folders);
  EXPECT_EQ(firstDifference(run(In2008 + "--output=-", german).output, golden("default-2008.ics")),
            "");
  for (const char* const date : {"21.6.2024", "2024-06-21"}) {
    const Outcome outcome = run("--time-zone=-8 --status=" + std::string(date), german);
    EXPECT_EQ(outcome.output, "21.6.2024\nSunrise = 05:13\nSunset = 21:11\n") << outcome.errors;
  }
  EXPECT_EQ(run("--status=6/21/2024", german).status, 2);
}

TEST_F(CompanionTest, TheHostGivesZoneAndYear) {
  // By the opening's rule the zone is an hour less while today lies within the bounds.
  const struct {
    std::string setting, winter, summer;
  } rows[] = {{"TZ=IST-5:30", "5", "4"}, {"TZ=AKST9", "-9", "-10"}, {"TZ=UTC0", "0", "-1"}};
  for (const auto& row : rows) {
    const std::string day = "--status=2024-06-21 ";
    EXPECT_THAT(run(day, row.setting).output, AnyOf(run(day + "--time-zone=" + row.winter).output,
                                                    run(day + "--time-zone=" + row.summer).output))
        << row.setting;
  }
  const auto thisYearStarts = [] {
    using namespace std::chrono;
    const year_month_day today(floor<days>(system_clock::now()));
    return HasSubstr("\nDTSTART:" + std::to_string(static_cast<int>(today.year())) + "0102T");
  };
  const auto before = thisYearStarts();
  EXPECT_THAT(run("--output=-", "TZ=UTC0").output, AnyOf(before, thisYearStarts()));
}

TEST_F(CompanionTest, HelpNamesTheOptionsAndItsExamplesWork) {
  EXPECT_EQ(run("--version").output, "Veldrin v6\n");
  const Outcome help = run("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.errors, "");
  EXPECT_THAT(help.output, AllOf(HasSubstr("--down-under "), HasSubstr(",--no-dst ")));
  // An example is a line that calls the program, with the lines that it goes on in.
  const Outcome outcome = run("", "", R"(PATH=$(dirname "$1"):$PATH; set -e
      "$1" --help | awk '/^  veldrin-calendar/ {on = 1} on {print; on = /\\$/}' >../examples
      . ../examples)");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(linesOf(outcome.output), 3);
  EXPECT_GE(files().size(), 2U);
}

}  // namespace
}  // namespace veldrin::test
