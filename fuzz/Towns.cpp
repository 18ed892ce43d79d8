#include "places/Towns.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "places/Fold.h"
#include "places/PlaceFault.h"

// Any bytes as the name of a town.

namespace veldrin::fuzz {
namespace {

/// The sentence for the user is one line that ends, however long the text is.
void checkSentence(const PlaceFault& fault) {
  constexpr std::size_t Longest = 1000;
  const std::string_view sentence = fault.what();
  require(sentence.size() < Longest && sentence.ends_with('.'), "the sentence is short and ends");
  require(sentence.find('\n') == std::string_view::npos, "the sentence is one line");
}

void checkKey(std::string_view text) {
  const std::string key = fold(text);
  requireSame(fold(key), key, "a key folds to itself");
}

void checkTown(std::string_view text) {
  const Town town = townNamed(text);
  requireSame(fullName(townNamed(fullName(town))), fullName(town), "a full name finds its town");
  bool isListed = false;
  for (const Town& each : townsNamed(text)) isListed = isListed || each.name == town.name;
  require(isListed, "a town that is found is listed");
}

}  // namespace
}  // namespace veldrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  for (const auto check : {veldrin::fuzz::checkKey, veldrin::fuzz::checkTown}) {
    try {
      check(text);
    } catch (const veldrin::PlaceFault& fault) {
      veldrin::fuzz::checkSentence(fault);
    }
  }
  return 0;
}
