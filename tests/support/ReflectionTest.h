#pragma once

#include "reflection/Introspection.h"
#include "reflection/ReflectionClasses.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {

/// All classes built and nothing described yet; at the end every object is gone again.
class ReflectionTest : public WindowTest {
 protected:
  void SetUp() override {
    before_ = liveObjectCount();
    WindowTest::SetUp();
    initializeClasses();
    initializeReflectionClasses();
  }
  void TearDown() override {
    Introspection::finalizeReflection();
    WindowTest::TearDown();
    EXPECT_EQ(liveObjectCount(), before_);
  }

 private:
  std::int64_t before_ = 0;
};

}  // namespace veldrin::test
