#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "places/FormClock.h"
#include "places/PlaceFault.h"
#include "places/ZoneRules.h"
#include "places/ZoneTable.h"
#include "shell/host/Civil.h"

namespace veldrin::fuzz {
namespace {

void requireSound(const ClockRules& rules, std::int64_t year) {
  for (std::int64_t day = dayNumber(year, 1, 1); day <= dayNumber(year, 12, 31); ++day) {
    const double noon = rules.momentOf(day, MinutesOfDay / 2.0);
    require(std::abs(rules.offsetAt(noon)) < MinutesOfDay, "no clock is a day ahead");
    const auto span = rules.spanOf(day);
    require(!span || span->begin < span->end, "a day begins before it ends");
  }
}

/// The rules of a year and what the form makes of them; false for a file that is refused.
bool tryRules(const std::string& file, std::int64_t year) {
  const auto rules = zoneRules(file, year, year);
  if (!rules) return false;
  requireSound(*rules, year);
  try {
    require(!formClock("Any", *rules, year).zone.empty(), "the form has a zone");
  } catch (const PlaceFault& fault) {
    require(std::string_view(fault.what()).ends_with('.'), "a refusal is a sentence");
  }
  return true;
}

/// The library keeps every zone that it has read, so a long run stops asking it.
void tryZone(const std::string& file) {
  constexpr int MostZones = 20'000;
  static int zones = 0;
  if (zones == MostZones) return;
  const bool isRead = tryRules(file, 2024);
  require(tryRules(file, 1900) == isRead && tryRules(file, 9998) == isRead,
          "a file is refused whatever the year");
  if (isRead) ++zones;
}

}  // namespace
}  // namespace veldrin::fuzz

/// A zone file, and the same bytes as a table of towns.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace veldrin;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  if (const auto place = placeInTable(bytes, "A/B")) {
    fuzz::require(std::abs(place->latitude) <= 90.0 && std::abs(place->longitude) <= 180.0,
                  "a town lies on the globe");
  }
  fuzz::tryZone(bytes);
  return 0;
}
