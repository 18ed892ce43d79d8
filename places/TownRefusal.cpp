#include "places/TownRefusal.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "places/Fold.h"
#include "places/NearNames.h"
#include "places/PlaceFault.h"
#include "places/Towns.h"

namespace veldrin {
namespace {

/// The text in quotation marks. Cuts a long text between two characters.
std::string quoted(std::string_view text) {
  constexpr std::size_t Shown = 60;
  if (text.size() <= Shown) return "\"" + std::string(text) + "\"";
  std::size_t end = Shown;
  while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
  return "\"" + std::string(text.substr(0, end)) + "...\"";
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
