#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace veldrin::test {
namespace {

TEST(NoDisplayTest, TheProgramSaysSoInOneSentenceAndEndsWithStatus1) {
  const struct {
    const char* display;
    const char* setting;
  } rows[] = {
      {"none is set", "unset DISPLAY"},
      {"none answers", "export DISPLAY=:4242"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.display);
    const std::string command = "unset QT_QPA_PLATFORM WAYLAND_DISPLAY XDG_SESSION_TYPE; " +
                                std::string(row.setting) + "; exec '" VELDRIN "' 2>&1";
    FILE* const output = ::popen(command.c_str(), "r");
    ASSERT_NE(output, nullptr);
    std::string said;
    std::array<char, 1024> part{};
    while (std::fgets(part.data(), part.size(), output) != nullptr) said += part.data();
    const int status = ::pclose(output);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(said,
              "veldrin: there is no display to show a window on; "
              "veldrin-calendar writes a calendar without one\n");
  }
}

}  // namespace
}  // namespace veldrin::test
