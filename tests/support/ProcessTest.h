#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/support/RuntimeTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {

/// Runs the process from its start to its end. A job runs in its event loop.
class ProcessTest : public PersonTest {
 protected:
  /// Returns the exit status. Checks that the run released all objects.
  int run(std::function<void()> job, const ApplicationParts& parts = VeldrinParts) {
    const std::int64_t before = liveObjectCount();
    toolkit.job = std::move(job);
    const int status = runProcess(host, toolkit, parts);
    EXPECT_EQ(liveObjectCount(), before);
    EXPECT_FALSE(MenuBar1::_implicitInstance);
    EXPECT_FALSE(OutputFile::Calendar());
    return status;
  }

  static Ref<Veldrin> window() { return implicit::Veldrin(); }
};

}  // namespace veldrin::test
