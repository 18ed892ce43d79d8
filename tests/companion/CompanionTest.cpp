#include <gmock/gmock.h>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bench/bare/Bare.h"
#include "tests/support/Programs.h"

namespace veldrin::test {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
using Names = std::vector<std::string>;

/// Runs the program in an empty folder, without the time zone and the locale of the environment.
class CompanionTest : public testing::Test {
 protected:
  CompanionTest() { std::filesystem::create_directory(folder); }

  /// Runs a shell script in which "$@" is the program with its options. `settings` are environment
  /// variables, such as "TZ=UTC0".
  Outcome run(const std::string& options, const std::string& settings = "",
              const std::string& script = "\"$@\"") const {
    std::string command = "cd " + folder.string() + "; unset TZ LANG LC_ALL LC_TIME LOCPATH; ";
    if (!settings.empty()) command += "export " + settings + "; ";
    command += "set -- '" VELDRIN_CALENDAR "' " + options;
    return runScript(command + "; " + script);
  }

  Names files() const {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  std::string made(const std::string& name) const { return readFile(folder / name); }

  const TemporaryFolder temporary;
  const std::filesystem::path root = temporary.path;
  const std::filesystem::path folder = root / "work";
};

const std::string In2008 = "--year=2008 --latitude=47.5 --longitude=-122.5 --time-zone=-8 ";

#if defined(__SANITIZE_ADDRESS__)
constexpr bool Sanitized = true;
#elif defined(__has_feature)
constexpr bool Sanitized = __has_feature(address_sanitizer);
#else
constexpr bool Sanitized = false;
#endif

/// Makes the call in VELDRIN_FAULT fail. Leak detection is off, because it reports memory that the
/// loader allocates through the preloaded library.
const std::string Faults =
    "ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0 LD_PRELOAD=" VELDRIN_FAULTS;

/// A script that runs the program with this fault.
std::string under(const std::string& fault) {
  return "VELDRIN_FAULT='" + fault + "' timeout 20 env " + Faults + " \"$@\"";
}

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
      {"--year=2030 --down-under --dst-start=2030-04-07 --dst-end=10/6/2030 --latitude=\u221233.87 "
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
              // The bounds are of the year of the date; --year has no effect.
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

TEST_F(CompanionTest, BadOptionsGiveOneSentenceAndNoFile) {
  std::istringstream rows(
      "--latitude=abc|--latitude=|--latitude=90.01|--latitude=1e999|--latitude=47.5x|--latitude|"
      "--longitude=-180.5|--time-zone=24.1|--year=0|--year=10000|--year=2008.5|"
      "--year=2008 --year=2009|--dst-start=today|--dst-end=2007-02-29|--status=13/1/2024|"
      "--status=0000-06-21|--status=10000-06-21|--output=|--output ''|--altitude=5|stray|-x|"
      "--down-under=perhaps|--output= --year=2008|--town= --year=2008|--place=x|--twilight=civil|"
      "--remind=5|--standard --status=2024-06-21|"
      "--year=1582 --standard|--year=9999 --standard|--remind=1441 --standard|"
      "--remind=-1 --standard|--remind=1.5 --standard|--remind= --standard|"
      "--twilight=civic --standard|--twilight= --standard|--place= --standard|"
      // C0 and C1 control characters, an overlong form, a surrogate, a code point beyond U+10FFFF,
      // a truncated character, and a continuation byte.
      "--place=\"$(printf 'a\\tb')\" --standard|--place=\"$(printf 'a\\177')\" --standard|"
      "--place=\"$(printf '\\302\\205')\" --standard|--place=\"$(printf '\\300\\257')\" --standard|"
      "--place=\"$(printf '\\355\\240\\200')\" --standard|"
      "--place=\"$(printf '\\364\\220\\200\\200')\" --standard|"
      "--place=\"$(printf '\\342\\202')\" --standard|--place=\"$(printf '\\277')\" --standard|"
      "--year=" +
      std::string(100'000, '9'));
  for (std::string options; std::getline(rows, options, '|');) {
    SCOPED_TRACE(options.substr(0, 40));
    const Outcome outcome = run(options);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(linesOf(outcome.errors), 1) << outcome.errors;
    // The sentence names the option and shortens a long value.
    EXPECT_THAT(outcome.errors, HasSubstr(options.substr(0, options.find_first_of("= "))));
    EXPECT_LT(outcome.errors.size(), 300U);
    EXPECT_EQ(files(), Names{});
  }
  const Outcome outcome = run(
      "", "", R"(x=$(head -c 100000 /dev/zero | tr '\0' x); "$@" $x $x $x $x $x $x $x $x $x $x)");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_LT(outcome.errors.size(), 300U);
}

TEST_F(CompanionTest, AFailedFileIsReportedAndKeepsTheLinesBeforeTheFailure) {
  // The reader closes the pipe before the program starts.
  const char* const toNobody =
      "rm -f ../gone; mkfifo ../gone; : <../gone & exec 4>../gone; wait; \"$@\" >&4";
  // The reader closes the pipe while the program waits, because zeros fill the pipe.
  const char* const leaving =
      "{ head -c 65536 /dev/zero; \"$@\"; echo $? >../status; } | "
      "{ sleep 0.2; head -c 9 >../head; }; exit $(cat ../status)";
  const std::string cannot = "Cannot write to " + folder.string() + "/";
  const std::string longName(300, 'x');
  const struct {
    std::string script, options, place;
  } rows[] = {{"\"$@\"", "--output=.", cannot + ".: Is a directory\n"},
              {"\"$@\"", "--output=" + longName, cannot + longName + ": File name too long\n"},
              {R"sh("$@" --output="$(printf 'no/\033[31m\n\177\302\205\377\303\244.ics')")sh", "",
               cannot + "no/?[31m????\u00e4.ics: No such file or directory\n"},
              {"\"$@\"", In2008 + "--output=/dev/full", "/dev/full"},
              {"\"$@\" >/dev/full", In2008 + "--output=-", "standard output"},
              {"\"$@\" >&-", In2008 + "--output=-", "standard output"},
              {"\"$@\" >/dev/full", "--status=2024-06-21", "standard output"},
              {toNobody, In2008 + "--output=-", "standard output"},
              {"\"$@\"", "--standard --output=/dev/full", "/dev/full"},
              {"\"$@\" >/dev/full", "--standard --output=-", "standard output"},
              {"\"$@\" >&-", "--standard --output=-", "standard output"},
              {toNobody, "--standard --output=-", "standard output"},
              {"\"$@\"", "--chart=/dev/full", "/dev/full"},
              {toNobody, "--chart=-", "standard output"},
              {"\"$@\"", "--standard --output=.", "work"},
              {"\"$@\"", "--standard --output=missing/x.ics", "missing/x.ics"},
              {"ln -s loop ../loop; \"$@\"", "--standard --output=../loop", "loop"},
              {R"(a=$(printf 'a\033\nb'); ln -s /dev/full "$a"; "$@" --output="$a")", In2008,
               "a??b is incomplete: No space left on device (IOException, error 28)\n"},
              {leaving, In2008 + "--output=-",
               "standard output is incomplete: Broken pipe (IOException, error 32)\n"},
              {"ulimit -f 8; \"$@\"", In2008, "Veldrin.ics"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.script << ' ' << row.options);
    const Outcome outcome = run(row.options, "", row.script);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(linesOf(outcome.errors), 1) << outcome.errors;
    EXPECT_THAT(outcome.errors, AllOf(StartsWith("veldrin-calendar: "), HasSubstr(row.place)));
  }
  // The limit is 4 KiB, and a line has 42 characters at most.
  const std::string begun = made("Veldrin.ics");
  EXPECT_TRUE(begun.size() > 4096 - 44 && begun.size() <= 4096) << begun.size();
  EXPECT_THAT(golden("default-2008.ics"), StartsWith(begun));
}

TEST_F(CompanionTest, AFailedSystemCallIsRetriedOrReported) {
  const std::string whole = golden("default-2008.ics");
  const std::string opening = "Cannot write to " + (folder / "Veldrin.ics").string() + ": ";
  const std::string writing = (folder / "Veldrin.ics").string() + " is incomplete: ";
  const struct {
    std::string call, how, complaint;
  } rows[] = {{"open", "EINTR", ""},
              {"open", "EIO", opening + "Input/output error"},
              {"open", "ENOSPC", opening + "No space left on device"},
              {"open", "EAGAIN", opening + "Resource temporarily unavailable"},
              {"write", "EINTR", ""},
              {"write", "EAGAIN", ""},
              {"write", "1", ""},
              {"write", "0", writing + "Input/output error (IOException, error 5)"},
              {"write", "EIO", writing + "Input/output error (IOException, error 5)"},
              {"write", "ENOSPC", writing + "No space left on device (IOException, error 28)"},
              // A stream ignores errors of close at its end.
              {"close", "EINTR", ""},
              {"close", "EIO", ""},
              {"close", "ENOSPC", ""},
              {"close", "EAGAIN", ""}};
  for (const auto& row : rows) {
    // The first, a middle and the last line.
    for (const int which : {1, 1464, 2927}) {
      if (which != 1 && row.call != "write") continue;
      const std::string fault = row.call + " " + std::to_string(which) + " " + row.how;
      SCOPED_TRACE(fault);
      const Outcome outcome = run(In2008, "", under(fault));
      EXPECT_EQ(outcome.status, row.complaint.empty() ? 0 : 1);
      EXPECT_EQ(outcome.errors,
                row.complaint.empty() ? "" : "veldrin-calendar: " + row.complaint + "\n");
      if (row.call == "open" && !row.complaint.empty()) continue;
      std::size_t end = row.complaint.empty() ? whole.size() : 0;
      for (int line = 1; end != whole.size() && line < which; ++line) {
        end = whole.find('\n', end) + 1;
      }
      EXPECT_EQ(firstDifference(made("Veldrin.ics"), whole.substr(0, end)), "");
    }
  }
}

TEST_F(CompanionTest, MemoryThatRunsOutIsReportedAtAnyBlock) {
  if (Sanitized) GTEST_SKIP() << "the sanitizer replaces malloc";
  // Run n fails from allocation n on, for each allocation before the file is opened.
  const Outcome outcome = run(In2008, "LC_ALL=C",
                              R"(
      VELDRIN_FAULT='memory 0 x' env )" +
                                  Faults + R"( "$@" 9>../count
      read -r blocks <../count; n=1
      while [ "$n" -le "$blocks" ]; do
        VELDRIN_FAULT="memory $n onwards" )" +
                                  Faults + R"( "$@" 2>../told; status=$?
        { IFS= read -r line; IFS= read -r more; } <../told
        case "$status$line$more" in
          "1veldrin-calendar: There is not enough memory.") ;;
          *) echo "$n: $status $line $more" ;;
        esac
        n=$((n+1))
      done
      echo "$blocks")");
  EXPECT_THAT(outcome.output, MatchesRegex("[0-9][0-9][0-9]+\n"));
}

TEST_F(CompanionTest, ADocumentIsCompleteWithSlowReadersClosedStreamsAndASmallStack) {
  const std::string toFile = In2008 + "--output=Veldrin.ics";
  const struct {
    std::string script, options;
  } rows[] = {
      {"\"$@\" | { sleep 0.2; cat; } >Veldrin.ics", In2008 + "--output=-"},
      {"\"$@\" <&- >&- 2>&-", toFile},
#ifndef __SANITIZE_ADDRESS__
      {"ulimit -s 128; \"$@\"", toFile},
#endif
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.script);
    EXPECT_EQ(run(row.options, "", row.script).status, 0);
    EXPECT_EQ(firstDifference(made("Veldrin.ics"), golden("default-2008.ics")), "");
    std::filesystem::remove(folder / "Veldrin.ics");
  }
  // The program opens descriptor 2 before the file, so the file cannot become the error stream.
  EXPECT_EQ(run(In2008 + "--output=/proc/self/fd/2", "", rows[1].script).status, 0);
}

TEST_F(CompanionTest, AStandardCalendarReplacesTheOldOneCompletelyOrNotAtAll) {
  const std::string options = "--standard --year=2026 --time-zone=-8 ";
  const std::string stamped = "TZ=UTC0 SOURCE_DATE_EPOCH=1700000000";
  const std::string whole = run(options + "--output=-", stamped).output;
  EXPECT_THAT(whole, AllOf(HasSubstr("\r\nDTSTAMP:20231114T221320Z\r\n"),
                           testing::EndsWith("\r\nEND:VCALENDAR\r\n")));
  EXPECT_THAT(run(options + "--output=-", "SOURCE_DATE_EPOCH=1e9").output,
              HasSubstr("\r\nDTSTAMP:20"));

  EXPECT_EQ(run(options + "--output=new.ics", stamped, "umask 027; \"$@\"").errors, "");
  EXPECT_EQ(run("", "", "stat -c %a new.ics").output, "640\n");
  EXPECT_TRUE(made("new.ics") == whole);

  // Through two links to an existing file with an unusual mode, then through one to a new file.
  const char* const links =
      "mkdir ../far; echo old >../far/real.ics; chmod 606 ../far/real.ics; ln -s real.ics "
      "../far/link.ics;"
      "ln -s ../far/link.ics linked.ics; ln -s ../far/later.ics dangling.ics";
  run("", "", links);
  EXPECT_EQ(run(options + "--output=linked.ics", stamped).errors, "");
  EXPECT_EQ(run(options + "--output=dangling.ics", stamped).errors, "");
  EXPECT_EQ(run("", "", "readlink linked.ics dangling.ics; stat -c %a ../far/real.ics").output,
            "../far/link.ics\n../far/later.ics\n606\n");
  EXPECT_TRUE(readFile(root / "far/real.ics") == whole &&
              readFile(root / "far/later.ics") == whole);

  // A failure leaves the old calendar and no other file. The superuser first drops the privilege to
  // write to a read-only file.
  std::ofstream(folder / "old.ics") << "old";
  const Names before = files();
  const struct {
    std::string script, reason;
  } refusals[] = {
      {"ulimit -f 8; \"$@\"", "File too large"},
      {"chmod 444 old.ics; [ $(id -u) -ne 0 ] || set -- setpriv --bounding-set=-dac_override "
       "\"$@\"; \"$@\"; status=$?; chmod 644 old.ics; exit $status",
       "Permission denied"},
      {under("close 1 EIO"), "Input/output error"},
      {under("fsync 1 EIO"), "Input/output error"},
      {under("close 1 ENOSPC"), "No space left on device"},
  };
  for (const auto& row : refusals) {
    const Outcome refused = run(options + "--output=old.ics", "", row.script);
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, AllOf(StartsWith("veldrin-calendar: Writing to /"),
                                      HasSubstr("/old.ics failed: " + row.reason + ".\n")));
    EXPECT_EQ(made("old.ics"), "old");
    EXPECT_THAT(files(), testing::UnorderedElementsAreArray(before));
  }
  for (const char* const harmless : {"close 1 EINTR", "fsync 2 EIO"}) {
    std::ofstream(folder / "old.ics") << "old";
    EXPECT_EQ(run(options + "--output=old.ics", stamped, under(harmless)).status, 0) << harmless;
    EXPECT_TRUE(made("old.ics") == whole) << harmless;
  }

  const Outcome piped = run(options + "--output=../pipe", stamped,
                            "mkfifo ../pipe; cat ../pipe & sleep 0.2; \"$@\"; wait");
  EXPECT_TRUE(piped.output == whole) << piped.errors;
  const Outcome among = run(options + "--output=/dev/stdout", stamped, "echo 1; \"$@\"; echo 2");
  EXPECT_TRUE(among.output == "1\n" + whole + "2\n") << among.errors;
}

TEST_F(CompanionTest, AStandardCalendarReachesTheDiskBeforeItReplacesAnOldOne) {
  // The first run makes the file, the second replaces it.
  const Outcome outcome = run("--standard --output=a.ics", "ASAN_OPTIONS=detect_leaks=0", R"(
    strace -o ../calls true || exit 77
    for time in first second; do
      strace -o ../calls -y -e trace='/^(write|fsync|close|rename.*)$' "$@" || exit
      sed -nE 's/^(write|fsync|close)\([0-9]+<[^>]*\/(\.veldrin|work)[-0-9]*>.*/\1 \2/p
               s/^rename.*/rename/p' ../calls
    done)");
  if (outcome.status == 77) GTEST_SKIP() << "strace cannot trace: " << outcome.errors;
  EXPECT_EQ(outcome.output,
            "write .veldrin\nclose .veldrin\nrename\n"
            "write .veldrin\nfsync .veldrin\nclose .veldrin\nrename\nfsync work\nclose work\n")
      << outcome.errors;
}

TEST_F(CompanionTest, ATownOrAZoneReplacesTheNumbers) {
  const std::string freiburg = "--latitude=47.9959 --longitude=7.8522 --year=2026 ";
  const std::string sydney = "--latitude=-33.87 --longitude=151.21 --year=2026 ";
  const struct {
    std::string byName, byNumbers;
  } rows[] = {
      {"--town='freiburg, de' --year=2026",
       freiburg + "--time-zone=1 --dst-start=2026-03-29 --dst-end=2026-10-25"},
      {"--standard --town=Freiburg --place=F --year=2026",
       freiburg + "--standard --place=F --time-zone=1 --dst-start=2026-03-29 --dst-end=2026-10-25"},
      {sydney + "--zone='australia sydney'", ""},
      {sydney + "--zone=sydney",
       sydney + "--time-zone=10 --down-under --dst-start=2026-04-05 --dst-end=2026-10-04"},
      {"--zone=Asia/Kolkata --status=2026-06-21",
       "--latitude=22.5333 --longitude=88.3667 --time-zone=5.5 --no-dst --status=2026-06-21"}};
  const std::string stamped = "SOURCE_DATE_EPOCH=0";
  for (const auto& row : rows) {
    SCOPED_TRACE(row.byName);
    const Outcome named = run(row.byName + " --output=-", stamped);
    if (row.byNumbers.empty()) {
      EXPECT_EQ(named.status, 2);
      continue;
    }
    EXPECT_EQ(named.errors, "");
    EXPECT_EQ(firstDifference(named.output, run(row.byNumbers + " --output=-", stamped).output),
              "");
  }
  EXPECT_EQ(run("--town=Wien --year=2026 --output=\"$(printf 'a\\n.ics')\"").output,
            "The sunrises and sunsets of Vienna, Vienna, AT are in a?.ics.\n");
  EXPECT_EQ(run("--towns=nowhere-at-all").status, 1);
  EXPECT_THAT(run("--towns=Cambridge").output,
              StartsWith("Cambridge, England, GB\t52.2000\t0.1167\tEurope/London\n"));
}

TEST_F(CompanionTest, AnUnusableTownOrZoneIsOneSentence) {
  const struct {
    std::string options, sentence, setting = {};
  } rows[] = {{"--town=Cambridge", "Cambridge, England, GB; "},
              {"--town=Berln", "Berlin, Berlin, DE"},
              {"--zone=Africa/Casablanca --year=2026", "--standard"},
              {"--zone=Etc/UTC", "--latitude and --longitude"},
              {"--zone=../../etc/passwd", "zone"},
              {"--zone=oslo --latitude=1", "--longitude"},
              {"--zone=oslo --down-under", "--down-under"},
              {"--town=Berlin --zone=oslo", "--zone"},
              {"--zone=oslo", "database is missing", "TZDIR=/nowhere"},
              {"--years=2", "--standard"},
              {"--standard --year=9998 --years=2", "9998"},
              {"--chart=x.svg --output=y", "--output"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.options);
    const Outcome outcome = run(row.options, row.setting);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, AllOf(StartsWith("veldrin-calendar: "), HasSubstr(row.sentence)));
    EXPECT_EQ(linesOf(outcome.errors), 1);
  }
}

TEST_F(CompanionTest, SeveralYearsAreTheEventsOfEach) {
  const auto eventsOf = [this](const std::string& years) {
    const std::string document =
        run("--standard --zone=Africa/Casablanca --output=- " + years, "SOURCE_DATE_EPOCH=0")
            .output;
    const std::size_t first = document.find("BEGIN:VEVENT");
    return document.substr(first, document.find("END:VCALENDAR") - first);
  };
  EXPECT_EQ(
      firstDifference(eventsOf("--year=2025 --years=3"),
                      eventsOf("--year=2025") + eventsOf("--year=2026") + eventsOf("--year=2027")),
      "");
}

TEST_F(CompanionTest, AGermanLocaleChangesTheDateFormAndNotTheCalendar) {
  const char* const folders = std::getenv("LOCPATH");
  // newlocale() leaks the list of folders that it makes from LOCPATH.
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

TEST_F(CompanionTest, TheComputerGivesZoneAndYear) {
  // The window subtracts an hour from the zone while today is within the bounds.
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

/// The README shows this picture.
TEST_F(CompanionTest, ThePictureOfFreiburgIsThatOfTheDocs) {
  run("--chart=a.svg --town=Freiburg --year=2026");
  EXPECT_TRUE(made("a.svg") == readFile(VELDRIN_TEST_DATA "/../../docs/freiburg-2026.svg"));
}

TEST_F(CompanionTest, HelpIsTheGoldenTextAndItsExamplesWork) {
  EXPECT_EQ(run("--version").output, "Veldrin v6\n");
  const Outcome help = run("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.errors, "");
  EXPECT_EQ(help.output, golden("help.txt"));
  // An example is a line that calls the program, with its continuation lines.
  const Outcome outcome = run("", "", R"(PATH=$(dirname "$1"):$PATH; set -e
      "$1" --help | awk '/^  veldrin-calendar/ {on = 1} on {print; on = /\\$/}' >../examples
      . ../examples)");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(linesOf(outcome.output), 5);  // 3 of a status, and 2 that name a file
  EXPECT_GE(files().size(), 3U);
}

}  // namespace
}  // namespace veldrin::test
