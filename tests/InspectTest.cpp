#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "tests/support/Documents.h"
#include "ui/FormStreams.h"

namespace veldrin::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Inspection {
  std::string output;  // both streams
  int status;
};

Inspection inspect(const std::string& arguments) {
  const std::string command = std::string(VELDRIN_INSPECT) + " " + arguments + " 2>&1";
  FILE* const pipe = popen(command.c_str(), "r");
  Inspection run{"", -1};
  std::array<char, 4096> part{};
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe)) {
    run.output.append(part.data(), count);
  }
  run.status = WEXITSTATUS(pclose(pipe));
  return run;
}

TEST(InspectTest, PrintsAClassFromItsTable) {
  const Inspection run = inspect("class MenuBar1.MenuBar1");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output,
            "base:\nMenuBar\nattributes:\n__Scope Public\nevents:\nproperties:\nmethods:\n"
            "Untitled0 %%\nUntitled1 %%\nConstructor %%\n");
  EXPECT_THAT(inspect("class Veldrin.Veldrin").output,
              HasSubstr("\nUpdateStatus %%\nHHMMZZ %s%f8\nIsDaylightSavingsTime %b%o<Date>\n"
                        "ShortDate %s%o<Date>\n"));
}

TEST(InspectTest, PrintsTheClassesInTheOrderInWhichTheyWereBuilt) {
  EXPECT_THAT(inspect("classes").output,
              AllOf(StartsWith("DragItem\nWindow\nRuntimeException\nNilObjectException\n"),
                    EndsWith("\nVeldrin.Veldrin\nApp\nMenuBar1.MenuBar1\n")));
}

TEST(InspectTest, WritesEachStreamOfTheFormToAFileOfItsObject) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("veldrin-form-" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  EXPECT_EQ(inspect("form " + folder.string()).status, 0);
  EXPECT_EQ(readFile(folder / "Veldrin"), WindowStream.view());
  for (std::size_t row = 0; row < FormNames.size(); ++row) {
    EXPECT_EQ(readFile(folder / FormNames[row].view()), FormStreams[row].view());
  }
  std::filesystem::remove_all(folder);
  const Inspection refused = inspect("form " + folder.string());
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.output, HasSubstr("Cannot write to " + folder.string()));
}

TEST(InspectTest, WrongWordsAreOneSentenceAndStatusTwo) {
  for (const char* const arguments : {"", "nothing", "class", "class No.Such", "classes all"}) {
    const Inspection run = inspect(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 1) << run.output;
  }
}

}  // namespace
}  // namespace veldrin::test
