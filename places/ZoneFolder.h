#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrin {

/// The town that a zone is named after, as the database's zone.tab has it.
struct ZonePlace {
  std::string name;  ///< the last part of the zone's name, with blanks: "New York"
  double latitude;   ///< degrees [-90:90], north positive, to four digits
  double longitude;  ///< degrees [-180:180], east positive, to four digits

  bool operator==(const ZonePlace&) const = default;
};

/// A time zone database: a folder with one compiled file for each zone (RFC 8536). Only files that
/// lie inside the folder are read, wherever a name or a link in the folder leads.
class ZoneFolder {
 public:
  /// Throws `PlaceFault` if `folder` is not a folder. It may be a link to one.
  explicit ZoneFolder(const std::filesystem::path& folder);

  /// The database of this machine: the folder in `TZDIR`, else the first of the usual ones that
  /// exists. Throws `PlaceFault` if there is none.
  static ZoneFolder ofMachine();

  /// The names of all zones, in order, without opening their files.
  [[nodiscard]] std::vector<std::string> names() const;

  /// The full name of the zone that a user means. `text` is the zone's name or, where only one zone
  /// ends so, its last part. Case does not matter, and a blank means "_". Throws `PlaceFault` if
  /// there is no such zone or more than one.
  [[nodiscard]] std::string find(std::string_view text) const;

  /// The bytes of a zone's file. Throws `PlaceFault` if there is no such zone, or if its file
  /// cannot be read or is too large for one.
  [[nodiscard]] std::string read(std::string_view name) const;

  /// The town of a zone; nothing for a zone that stands for none, such as "Etc/UTC".
  [[nodiscard]] std::optional<ZonePlace> placeOf(std::string_view name) const;

 private:
  [[nodiscard]] std::optional<std::filesystem::path> inside(std::string_view name) const;
  [[nodiscard]] bool has(std::string_view name) const;
  [[nodiscard]] bool areTheSame(const std::vector<std::string>& zones) const;
  [[nodiscard]] std::string oneOf(const std::vector<std::string>& zones,
                                  std::string_view text) const;
  [[nodiscard]] std::optional<ZonePlace> placeIn(const char* table, std::string_view name) const;

  std::filesystem::path root_;
};

}  // namespace veldrin
