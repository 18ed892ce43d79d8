#include "places/Towns.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "places/Fold.h"
#include "places/PlaceFault.h"

// Input: one text, used as the name of a town.

namespace veldrin::fuzz {
namespace {

/// Checks that an error message is one short line with a full stop, even for a long input.
void checkMessage(const PlaceFault& fault) {
  constexpr std::size_t MaximumLength = 1000;
  const std::string_view message = fault.what();
  require(message.size() < MaximumLength && message.ends_with('.'),
          "the message is short and ends in a full stop");
  require(message.find('\n') == std::string_view::npos, "the message is one line");
}

void checkKey(std::string_view text) {
  const std::string key = fold(text);
  requireSame(fold(key), key, "folding a key again does not change it");
}

void checkTown(std::string_view text) {
  const Town town = townNamed(text);
  requireSame(fullName(townNamed(fullName(town))), fullName(town), "a full name finds its town");
  bool isListed = false;
  for (const Town& each : townsNamed(text)) isListed = isListed || each.name == town.name;
  require(isListed, "the list contains the town");
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  for (const auto check : {veldrin::fuzz::checkKey, veldrin::fuzz::checkTown}) {
    try {
      check(text);
    } catch (const veldrin::PlaceFault& fault) {
      veldrin::fuzz::checkMessage(fault);
    }
  }
  return 0;
}
