#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "apps/VeldrinParts.h"
#include "shell/Runtime.h"
#include "shell/objects/Object.h"
#include "tests/support/FakeHost.h"
#include "toolkits/headless/HeadlessToolkit.h"

// What the targets share. A target gets any bytes and does with them what could go wrong; a fault
// is a crash, a loop, a report of a sanitizer, or a rule that does not hold.

namespace veldrin::fuzz {

/// Ends the process where the rule does not hold, and says which.
inline void require(bool holds, std::string_view rule) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "This does not hold: %s\n", std::string(rule).c_str()));
  std::abort();
}

/// The same for two texts that have to be equal.
inline void requireSame(std::string_view actual, std::string_view expected, std::string_view rule) {
  if (actual == expected) return;
  require(false,
          std::string(rule) + ":\n" + std::string(actual) + "\nnot\n" + std::string(expected));
}

/// All classes, and a runtime with no screen on a host that stands at 2024-06-21 12:00 in a zone 8
/// hours west with its daylight-saving hour. It is there once, for all inputs.
class World {
 public:
  static World& one() {
    static World world;
    return world;
  }

  test::FakeHost host;
  HeadlessToolkit toolkit;
  Runtime runtime{host, toolkit};

 private:
  World() {
    host.stand({2024, 6, 21, 12, 0, 0}, -7.0);
    measureStack();
    initializeClasses();
  }
};

/// Requires at its end that as many objects live as at its beginning.
class NothingStays {
 public:
  NothingStays() = default;
  NothingStays(const NothingStays&) = delete;
  NothingStays& operator=(const NothingStays&) = delete;
  ~NothingStays() { require(liveObjectCount() == before_, "every object has gone again"); }

 private:
  std::int64_t before_ = liveObjectCount();
};

}  // namespace veldrin::fuzz
