#include "apps/PlaceOfRequest.h"

#include <algorithm>
#include <string>
#include <vector>

#include "almanac/Coordinate.h"
#include "apps/ProgramMain.h"
#include "places/FormClock.h"
#include "places/PlaceFault.h"
#include "places/Towns.h"
#include "places/Zone.h"
#include "shell/values/Date.h"

namespace veldrin {
namespace {

void setPlace(CalendarRequest& request, std::string_view name, double latitude, double longitude) {
  if (request.place.empty()) request.place = name;
  request.latitude = Coordinate(latitude).number();
  request.longitude = Coordinate(longitude).number();
}

/// Sets the place in the request to the town that the zone is named after.
void setTownOfZone(CalendarRequest& request, const ZoneFolder& folder, const std::string& zone) {
  const std::optional<ZonePlace> town = folder.placeOf(zone);
  if (!town) {
    throw PlaceFault("The time zone " + zone +
                     " belongs to no town; give --latitude and --longitude.");
  }
  setPlace(request, town->name, town->latitude, town->longitude);
}

std::string shortDateOf(const CivilDay& day) {
  const Ref<Date> date = New<Date>();
  date->Constructor(static_cast<std::int32_t>(day.year), day.month, day.day, 0, 0, 0);
  return std::string(date->ShortDate().view());
}

/// Sets the request's time zone and daylight saving, as the form expects them, from the zone.
void setFormClock(CalendarRequest& request, const std::string& zone, const ClockRules& rules,
                  std::int32_t year) {
  const FormClock clock = formClock(zone, rules, year);
  request.timeZone = clock.zone;
  request.daylightSaving = clock.saving.has_value();
  if (!clock.saving) return;
  request.firstBound = shortDateOf(clock.saving->first);
  request.secondBound = shortDateOf(clock.saving->second);
  request.downUnder = clock.saving->isDownUnder;
}

}  // namespace

std::int32_t yearOf(const Host& host, const CalendarRequest& request) {
  return request.year.value_or(host.localTime(host.now()).year);
}

PlaceOfRequest lookUpPlace(Host& host, CalendarRequest& request) {
  PlaceOfRequest found;
  if (request.town) {
    const Town town = townNamed(*request.town);
    found.town = fullName(town);
    request.zone = town.zone;
    setPlace(request, town.name, town.latitude, town.longitude);
  }
  if (!request.zone) return found;
  const InForce<Host> scope(host);
  const std::int32_t year = yearOf(host, request);
  const ZoneFolder folder = ZoneFolder::ofMachine();
  Zone zone = zoneNamed(folder, *request.zone, year, year + request.years - 1);
  if (!request.latitude) setTownOfZone(request, folder, zone.name);
  if (!request.standard && !request.chart) setFormClock(request, zone.name, zone.rules, year);
  found.zone = std::move(zone.name);
  found.clock = std::move(zone.rules);
  return found;
}

RunOutcome listTowns(const std::string& text) {
  const std::vector<Town> towns = townsListed(text);
  if (towns.empty()) {
    return {.status = Failed,
            .complaints = {"No town has a name that begins with \"" + text + "\"."}};
  }
  RunOutcome outcome;
  for (const Town& town : towns) {
    outcome.output += fullName(town) + "\t" + Coordinate(town.latitude).number() + "\t" +
                      Coordinate(town.longitude).number() + "\t" + std::string(town.zone) + "\n";
  }
  return outcome;
}

}  // namespace veldrin
