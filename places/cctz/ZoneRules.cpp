#include "places/ZoneRules.h"

#include <cctz/time_zone.h>
#include <cctz/zone_info_source.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "places/PosixRule.h"
#include "places/ZoneFile.h"
#include "shell/host/Civil.h"

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

/// A zone as its file has it. The library reads the listed changes; some of its versions go wrong
/// where the last two of them do not follow the rule behind them, so that rule is read here.
class FileZone {
 public:
  /// Nothing if the file is damaged.
  static std::optional<FileZone> read(std::string_view bytes) {
    FileZone zone;
    auto file = readZoneFile(bytes);
    // The bytes themselves are the name by which the library knows the zone. It keeps each zone
    // that it has read, so two files never share a name.
    if (!file || !cctz::load_time_zone(file->changes, &zone.listed_)) return std::nullopt;
    zone.lastChange_ = file->lastChange;
    zone.rule_ = file->rule;
    return zone;
  }

  /// Seconds ahead of Universal Time.
  [[nodiscard]] std::int64_t offsetAt(std::int64_t second) const {
    if (rule_ && second >= lastChange_) return rule_->offsetAt(second);
    return listed_.lookup(cctz::time_point<cctz::seconds>(cctz::seconds(second))).offset;
  }

 private:
  cctz::time_zone listed_;
  std::int64_t lastChange_ = 0;
  std::optional<PosixRule> rule_;
};

/// Appends the changes in (from, to] by halving. Two changes that cancel each other are missed, so
/// the span is a day: no zone of the database has changed twice within three days.
void appendChanges(const FileZone& zone, std::int64_t from, std::int64_t to,
                   std::vector<ClockChange>& changes) {
  const std::int64_t offset = zone.offsetAt(to);
  if (zone.offsetAt(from) == offset) return;
  if (to - from == 1) {
    changes.push_back({static_cast<double>(to) / 60.0, static_cast<double>(offset) / 60.0});
    return;
  }
  const std::int64_t middle = from + (to - from) / 2;
  appendChanges(zone, from, middle, changes);
  appendChanges(zone, middle, to, changes);
}

}  // namespace

std::optional<ClockRules> zoneRules(std::string_view file, std::int64_t firstYear,
                                    std::int64_t lastYear) {
  const auto zone = FileZone::read(file);
  if (!zone) return std::nullopt;
  constexpr std::int64_t DaysBeside = 40;
  const std::int64_t first = (dayNumber(firstYear, 1, 1) - DaysBeside) * SecondsOfDay;
  const std::int64_t last = (dayNumber(lastYear, 12, 31) + DaysBeside) * SecondsOfDay;
  std::vector<ClockChange> changes;
  for (std::int64_t day = first; day < last; day += SecondsOfDay) {
    appendChanges(*zone, day, day + SecondsOfDay, changes);
  }
  return ClockRules(static_cast<double>(zone->offsetAt(first)) / 60.0, std::move(changes));
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
