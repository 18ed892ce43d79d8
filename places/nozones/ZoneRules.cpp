#include "places/ZoneRules.h"

#include "places/PlaceFault.h"

namespace veldrin {

std::optional<ClockRules> zoneRules(std::string_view /*file*/, std::int64_t /*firstYear*/,
                                    std::int64_t /*lastYear*/) {
  throw PlaceFault("This veldrin-calendar was built without time zones.");
}

}  // namespace veldrin
