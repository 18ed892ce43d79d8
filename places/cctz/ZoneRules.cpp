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

// Debian has an archive of cctz as a part of Abseil alone.
namespace cctz = absl::time_internal::cctz;

namespace veldrin {
namespace {

/// What the library reads: bytes in memory.
class Bytes final : public cctz::ZoneInfoSource {
 public:
  explicit Bytes(std::string_view left) : left_(left) {}

  std::size_t Read(void* target, std::size_t size) override {
    const std::size_t taken = std::min(size, left_.size());
    std::memcpy(target, left_.data(), taken);
    left_.remove_prefix(taken);
    return taken;
  }

  int Skip(std::size_t size) override {
    if (size > left_.size()) return -1;
    left_.remove_prefix(size);
    return 0;
  }

 private:
  std::string_view left_;
};

/// Seconds ahead of Universal Time.
std::int64_t offsetAt(const cctz::time_zone& zone, std::int64_t second) {
  return zone.lookup(cctz::time_point<cctz::seconds>(cctz::seconds(second))).offset;
}

/// Appends the changes in (from, to] by halving. Two changes that cancel each other are missed, so
/// the span is a day: no zone of the database has changed twice within three days.
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

/// Gives the library the bytes of a zone. Its name for a zone is the bytes themselves, so that two
/// files never share one: it keeps each zone that it has read.
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

/// The library's own variable; it asks this function for the bytes of a zone.
absl::time_internal::cctz_extension::ZoneInfoSourceFactory
    absl::time_internal::cctz_extension::zone_info_source_factory = veldrin::sourceOf;
