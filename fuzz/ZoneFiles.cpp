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

// Input: a zone file; the same bytes are also read as a table of towns.

namespace veldrin::fuzz {
namespace {

void checkRules(const ClockRules& rules, std::int64_t year) {
  for (std::int64_t day = dayNumber(year, 1, 1); day <= dayNumber(year, 12, 31); ++day) {
    const double noon = rules.momentOf(day, MinutesOfDay / 2.0);
    require(std::abs(rules.offsetAt(noon)) < MinutesOfDay, "the offset is less than a day");
    const auto span = rules.spanOf(day);
    require(!span || span->begin < span->end, "a day begins before it ends");
  }
}

/// Checks the rules of a year and the form's settings for them. Returns false for an invalid file.
bool tryRules(const std::string& file, std::int64_t year) {
  const auto rules = zoneRules(file, year, year);
  if (!rules) return false;
  checkRules(*rules, year);
  try {
    require(!formClock("Any", *rules, year).zone.empty(), "the form has a zone");
  } catch (const PlaceFault& fault) {
    require(std::string_view(fault.what()).ends_with('.'), "the message ends in a full stop");
  }
  return true;
}

/// Ignores files after `MaximumZones` valid ones, because the library never frees a zone.
void tryZone(const std::string& file) {
  constexpr int MaximumZones = 20'000;
  static int zones = 0;
  if (zones == MaximumZones) return;
  const bool isRead = tryRules(file, 2024);
  require(tryRules(file, 1900) == isRead && tryRules(file, 9998) == isRead,
          "the file is valid for every year or for none");
  if (isRead) ++zones;
}

}  // namespace
}  // namespace veldrin::fuzz

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
