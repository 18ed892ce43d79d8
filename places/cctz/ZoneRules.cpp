#include "places/ZoneRules.h"

#include <cctz/time_zone.h>
#include <cctz/zone_info_source.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "places/ZoneFile.h"
#include "shell/Civil.h"

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

/// Takes the library's complaints for as long as it lives. The library reports a rule that it
/// cannot read to std::clog alone, and goes on without the rule.
class Complaints {
 public:
  Complaints() = default;
  Complaints(const Complaints&) = delete;
  Complaints& operator=(const Complaints&) = delete;
  ~Complaints() { std::clog.rdbuf(before_); }

  [[nodiscard]] bool any() const { return !text_.view().empty(); }

 private:
  std::ostringstream text_;
  std::streambuf* before_ = std::clog.rdbuf(text_.rdbuf());
};

/// The bytes themselves are the name by which the library knows the zone. It keeps each zone that
/// it has read, so two files never share a name.
std::optional<cctz::time_zone> zoneOf(const std::string& file) {
  cctz::time_zone zone;
  const Complaints complaints;
  if (!cctz::load_time_zone(file, &zone) || complaints.any()) return std::nullopt;
  return zone;
}

using Seconds = cctz::time_point<cctz::seconds>;

Seconds startOf(std::int64_t day) {
  return Seconds(cctz::seconds(day * SecondsOfDay));
}

double minutesAhead(const cctz::time_zone& zone, Seconds moment) {
  return zone.lookup(moment).offset / 60.0;
}

/// Appends the changes in (from, to] by halving. Two changes that cancel each other are missed, so
/// the span is a day: no zone of the database has changed twice within three days. (The library's
/// own list of changes ends after 400 years.)
void appendChanges(const cctz::time_zone& zone, Seconds from, Seconds to,
                   std::vector<ClockChange>& changes) {
  const double offset = minutesAhead(zone, to);
  if (minutesAhead(zone, from) == offset) return;
  if (to - from == cctz::seconds(1)) {
    changes.push_back({static_cast<double>(to.time_since_epoch().count()) / 60.0, offset});
    return;
  }
  const Seconds middle = from + (to - from) / 2;
  appendChanges(zone, from, middle, changes);
  appendChanges(zone, middle, to, changes);
}

}  // namespace

std::optional<ClockRules> zoneRules(const std::string& file, std::int64_t firstYear,
                                    std::int64_t lastYear) {
  if (!isZoneFile(file)) return std::nullopt;
  const auto zone = zoneOf(file);
  if (!zone) return std::nullopt;
  constexpr std::int64_t DaysBeside = 40;
  const std::int64_t firstDay = dayNumber(firstYear, 1, 1) - DaysBeside;
  const std::int64_t lastDay = dayNumber(lastYear, 12, 31) + DaysBeside;
  std::vector<ClockChange> changes;
  for (std::int64_t day = firstDay; day < lastDay; ++day) {
    appendChanges(*zone, startOf(day), startOf(day + 1), changes);
  }
  return ClockRules(minutesAhead(*zone, startOf(firstDay)), std::move(changes));
}

}  // namespace veldrin

/// Where the library gets the bytes of a zone, by its own name for this function.
namespace cctz_extension {
namespace {

std::unique_ptr<cctz::ZoneInfoSource> bytesOf(
    const std::string& name,
    const std::function<std::unique_ptr<cctz::ZoneInfoSource>(const std::string&)>& /*usual*/) {
  return std::make_unique<veldrin::Bytes>(name);
}

}  // namespace

ZoneInfoSourceFactory zone_info_source_factory = bytesOf;

}  // namespace cctz_extension
