#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "places/Fold.h"
#include "places/NearNames.h"
#include "places/PlaceFault.h"
#include "places/Towns.h"

namespace veldrin {
namespace {

/// The text in quotation marks, cut between letters if it is long.
std::string quoted(std::string_view text) {
  constexpr std::size_t Shown = 60;
  if (text.size() <= Shown) return "\"" + std::string(text) + "\"";
  std::size_t end = Shown;
  while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
  return "\"" + std::string(text.substr(0, end)) + "...\"";
}

std::string listOf(const std::vector<Town>& towns) {
  std::string list;
  for (const Town& town : towns) list += (list.empty() ? "" : "; ") + fullName(town);
  return list;
}

[[noreturn]] void refuseUnknown(std::string_view text) {
  constexpr std::size_t MostSuggestions = 3;
  const std::vector<Town> near = townsNear(fold(text.substr(0, text.find(','))), MostSuggestions);
  const std::string suggestions = near.empty() ? "" : "; spelled nearly so: " + listOf(near);
  throw PlaceFault("No town is named " + quoted(text) + suggestions + ".");
}

[[noreturn]] void refuseAmbiguous(std::string_view text, std::vector<Town> towns) {
  constexpr std::size_t MostChoices = 5;
  std::string more;
  if (towns.size() > MostChoices) {
    more = "; and " + std::to_string(towns.size() - MostChoices) + " more";
    towns.resize(MostChoices);
  }
  throw PlaceFault(quoted(text) + " may be one of these towns: " + listOf(towns) + more + ".");
}

}  // namespace

void dropTwins(std::vector<Town>& towns) {
  std::vector<std::string> names;
  std::erase_if(towns, [&names](const Town& town) {
    const bool isTwin = std::ranges::find(names, fullName(town)) != names.end();
    names.push_back(fullName(town));
    return isTwin;
  });
}

Town townNamed(std::string_view text) {
  std::vector<Town> towns = townsNamed(text);
  if (towns.empty()) refuseUnknown(text);
  for (const Town& town : towns) {
    if (fullName(town) == text) return town;
  }
  dropTwins(towns);
  const bool isClear = towns.size() == 1 || outweighs(towns[0], towns[1]);
  if (!isClear) refuseAmbiguous(text, std::move(towns));
  return towns[0];
}

}  // namespace veldrin
