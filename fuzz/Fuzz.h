#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "apps/VeldrinParts.h"
#include "shell/Runtime.h"
#include "shell/objects/Object.h"
#include "tests/support/FakeHost.h"
#include "toolkits/headless/HeadlessToolkit.h"

// Shared by the fuzz targets. A failure is a crash, a timeout, a sanitizer report or a failed
// `require`.

namespace veldrin::fuzz {

/// Unless `holds`, prints the rule and aborts.
inline void require(bool holds, std::string_view rule) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "Rule violated: %s\n", std::string(rule).c_str()));
  std::abort();
}

/// Unless the texts are equal, prints the rule and both texts and aborts.
inline void requireSame(std::string_view actual, std::string_view expected, std::string_view rule) {
  if (actual == expected) return;
  require(false,
          std::string(rule) + ":\n" + std::string(actual) + "\nnot\n" + std::string(expected));
}

/// All classes, the headless toolkit, and a fake host at 2024-06-21 12:00, UTC-7 (Pacific daylight
/// time). One instance serves all inputs.
class World {
 public:
  static World& instance() {
    static World world;
    return world;
  }

  test::FakeHost host;
  HeadlessToolkit toolkit;
  Runtime runtime{host, toolkit};

 private:
  World() {
    host.setClock({2024, 6, 21, 12, 0, 0}, -7.0);
    measureStack();
    initializeClasses();
  }
};

/// The destructor requires that as many objects exist as at construction.
class ObjectLeakGuard {
 public:
  ObjectLeakGuard() = default;
  ObjectLeakGuard(const ObjectLeakGuard&) = delete;
  ObjectLeakGuard& operator=(const ObjectLeakGuard&) = delete;
  ~ObjectLeakGuard() { require(liveObjectCount() == before_, "all objects are released"); }

 private:
  std::int64_t before_ = liveObjectCount();
};

}  // namespace veldrin::fuzz
