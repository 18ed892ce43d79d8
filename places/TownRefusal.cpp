#include "places/TownRefusal.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "places/Fold.h"
#include "places/NearNames.h"
#include "places/PlaceFault.h"
#include "places/Towns.h"
#include "shell/host/PlainText.h"

namespace veldrin {
namespace {

/// The text in quotation marks, cut if it is long.
std::string quoted(std::string_view text) {
  constexpr std::size_t Shown = 60;
  return "\"" + shortened(text, Shown) + "\"";
}

std::string listOf(std::span<const Town> towns) {
  std::string list;
  for (const Town& town : towns) list += (list.empty() ? "" : "; ") + fullName(town);
  return list;
}

}  // namespace

void refuseUnknownTown(std::string_view text) {
  constexpr std::size_t MostSuggestions = 3;
  const std::vector<Town> near = townsNear(fold(text.substr(0, text.find(','))), MostSuggestions);
  const std::string suggestions = near.empty() ? "" : "; similar names: " + listOf(near);
  throw PlaceFault("No town is named " + quoted(text) + suggestions + ".");
}

void refuseAmbiguousTown(std::string_view text, const std::vector<Town>& towns) {
  constexpr std::size_t MostChoices = 5;
  const std::size_t shown = std::min(MostChoices, towns.size());
  const std::size_t rest = towns.size() - shown;
  const std::string more = rest == 0 ? "" : "; and " + std::to_string(rest) + " more";
  throw PlaceFault(quoted(text) + " may be one of these towns: " +
                   listOf(std::span(towns).first(shown)) + more + ".");
}

}  // namespace veldrin
