#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

#include "tests/support/Programs.h"
#include "ui/FormStreams.h"

namespace veldrin::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

Outcome inspect(const std::string& arguments) {
  return runScript("'" VELDRIN_INSPECT "' " + arguments);
}

TEST(InspectTest, PrintsTheClassesInBuildOrderAndTheTableOfEach) {
  EXPECT_THAT(inspect("classes").output,
              AllOf(StartsWith("DragItem\nWindow\nRuntimeException\nNilObjectException\n"),
                    EndsWith("\nVeldrin.Veldrin\nApp\nMenuBar1.MenuBar1\n")));
  const Outcome run = inspect("class MenuBar1.MenuBar1");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output,
            "base:\nMenuBar\nattributes:\n__Scope Public\nevents:\nproperties:\nmethods:\n"
            "Untitled0 %%\nUntitled1 %%\nConstructor %%\n");
  EXPECT_THAT(inspect("class QuitMenuItem").output, HasSubstr("\nevents:\nAction\nproperties:\n"));
  EXPECT_THAT(inspect("--help").output, StartsWith("Usage: veldrin-inspect COMMAND\n"));
  EXPECT_THAT(inspect("class Veldrin.Veldrin").output,
              HasSubstr("\nUpdateStatus %%\nHHMMZZ %s%f8\nIsDaylightSavingsTime %b%o<Date>\n"
                        "ShortDate %s%o<Date>\n"));
}

TEST(InspectTest, WritesEachStreamOfTheFormToAFileWithItsName) {
  const TemporaryFolder temporary;
  const std::filesystem::path& folder = temporary.path;
  EXPECT_EQ(inspect("form " + folder.string()).status, 0);
  EXPECT_EQ(readFile(folder / "Veldrin"), WindowStream.view());
  for (std::size_t row = 0; row < FormNames.size(); ++row) {
    EXPECT_EQ(readFile(folder / FormNames[row].view()), FormStreams[row].view());
  }
  std::filesystem::remove_all(folder);
  const Outcome refused = inspect("form " + folder.string());
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr("Cannot write to " + folder.string()));
}

TEST(InspectTest, InvalidArgumentsAreOneSentenceAndStatus2) {
  for (const auto& [arguments, named] : {std::pair("", "A command is missing"),
                                         {"nothing", "There is no command \"nothing\""},
                                         {"class", "The command \"class\" takes"},
                                         {"class No.Such", "There is no class \"No.Such\""},
                                         {"classes all", "The command \"classes\" takes"}}) {
    const Outcome run = inspect(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_THAT(run.errors, StartsWith("veldrin-inspect: " + std::string(named)));
    EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
  }
}

}  // namespace
}  // namespace veldrin::test
