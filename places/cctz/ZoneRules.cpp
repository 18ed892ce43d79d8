#include "places/ZoneRules.h"

#include <absl/time/internal/cctz/include/cctz/time_zone.h>
#include <absl/time/internal/cctz/include/cctz/zone_info_source.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "places/ZoneFile.h"
#include "shell/host/Civil.h"

// Debian packages the static library of cctz only as a part of Abseil.
namespace cctz = absl::time_internal::cctz;

namespace veldrin {
namespace {

/// A source of zone data for the library: bytes in memory.
class Bytes final : public cctz::ZoneInfoSource {
 public:
  explicit Bytes(std::string_view bytes) : remaining_(bytes) {}

  std::size_t Read(void* target, std::size_t size) override {
    const std::size_t taken = std::min(size, remaining_.size());
    std::memcpy(target, remaining_.data(), taken);
    remaining_.remove_prefix(taken);
    return taken;
  }

  int Skip(std::size_t size) override {
    if (size > remaining_.size()) return -1;
    remaining_.remove_prefix(size);
    return 0;
  }

 private:
  std::string_view remaining_;
};

/// The UTC offset in seconds, positive if ahead of Universal Time.
std::int64_t offsetAt(const cctz::time_zone& zone, std::int64_t second) {
  return zone.lookup(cctz::time_point<cctz::seconds>(cctz::seconds(second))).offset;
}

/// Appends the changes in (from, to], found by bisection. Misses two changes that cancel each
/// other, so pass one day at most: no zone of the database has changed twice within three days.
void appendChanges(const cctz::time_zone& zone, std::int64_t from, std::int64_t to,
                   std::vector<ClockChange>& changes) {
  const std::int64_t offset = offsetAt(zone, to);
  if (offsetAt(zone, from) == offset) return;
  if (to - from == 1) {
    changes.push_back({static_cast<double>(to) / 60.0, static_cast<double>(offset) / 60.0});
    return;
  }
  const std::int64_t middle = from + (to - from) / 2;
  appendChanges(zone, from, middle, changes);
  appendChanges(zone, middle, to, changes);
}

/// Gives the library the bytes of a zone. The library caches zones by name. Here, the name of a
/// zone is its bytes, so different files never share a name.
std::unique_ptr<cctz::ZoneInfoSource> sourceOf(
    const std::string& name,
    const std::function<std::unique_ptr<cctz::ZoneInfoSource>(const std::string&)>& /*usual*/) {
  return std::make_unique<Bytes>(name);
}

}  // namespace

std::optional<ClockRules> zoneRules(std::string_view file, std::int64_t firstYear,
                                    std::int64_t lastYear) {
  cctz::time_zone zone;
  if (!isWholeZoneFile(file) || !cctz::load_time_zone(std::string(file), &zone)) {
    return std::nullopt;
  }
  constexpr std::int64_t DaysBeside = 40;
  const std::int64_t first = (dayNumber(firstYear, 1, 1) - DaysBeside) * SecondsOfDay;
  const std::int64_t last = (dayNumber(lastYear, 12, 31) + DaysBeside) * SecondsOfDay;
  std::vector<ClockChange> changes;
  for (std::int64_t day = first; day < last; day += SecondsOfDay) {
    appendChanges(zone, day, day + SecondsOfDay, changes);
  }
  return ClockRules(static_cast<double>(offsetAt(zone, first)) / 60.0, std::move(changes));
}

}  // namespace veldrin

/// A variable of the library, which calls the function in it for the bytes of each zone.
absl::time_internal::cctz_extension::ZoneInfoSourceFactory
    absl::time_internal::cctz_extension::zone_info_source_factory = veldrin::sourceOf;
