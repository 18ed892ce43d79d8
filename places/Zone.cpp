#include "places/Zone.h"

#include <utility>

#include "places/PlaceFault.h"
#include "places/ZoneHere.h"
#include "places/ZoneName.h"
#include "places/ZoneRules.h"

namespace veldrin {

Zone zoneNamed(const ZoneFolder& folder, std::string_view text, std::int64_t firstYear,
               std::int64_t lastYear) {
  std::string name = folder.find(foldedZone(text) == "here" ? zoneHere() : text);
  auto rules = zoneRules(folder.read(name), firstYear, lastYear);
  if (!rules) throw PlaceFault("The file of the time zone " + name + " is damaged.");
  return {std::move(name), *std::move(rules)};
}

}  // namespace veldrin
