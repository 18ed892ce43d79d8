#include <gtest/gtest.h>

#include <string>

#include "tests/support/Programs.h"

namespace veldrin::test {
namespace {

TEST(NoDisplayTest, TheProgramSaysSoInOneSentenceAndEndsWithStatus1) {
  // None is set; none answers.
  for (const std::string setting : {"unset DISPLAY", "export DISPLAY=:4242"}) {
    SCOPED_TRACE(setting);
    const Outcome run = runScript("unset QT_QPA_PLATFORM WAYLAND_DISPLAY XDG_SESSION_TYPE; " +
                                  setting + "; exec '" VELDRIN "'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output + run.errors,
              "veldrin: there is no display to show a window on; "
              "veldrin-calendar writes a calendar without one\n");
  }
}

}  // namespace
}  // namespace veldrin::test
