#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrin {

/// The town that a zone is named after, from zone.tab or zone1970.tab of the database.
struct ZonePlace {
  std::string name;  ///< the last part of the zone's name, with blanks: "New York"
  double latitude;   ///< degrees [-90:90], north positive, to four digits
  double longitude;  ///< degrees [-180:180], east positive, to four digits

  bool operator==(const ZonePlace&) const = default;
};

/// A time zone database: a folder with one compiled file for each zone (RFC 8536). Reads no file
/// outside the folder, even if a name or a link leads there.
class ZoneFolder {
 public:
  /// `folder` may be a link. Throws `PlaceFault` if it is not a folder.
  explicit ZoneFolder(const std::filesystem::path& folder);

  /// The database of this computer: the folder in `TZDIR`, else the first usual folder found.
  /// Throws `PlaceFault` if there is none.
  static ZoneFolder ofMachine();

  /// The names of all zones, sorted. Opens no file.
  [[nodiscard]] std::vector<std::string> names() const;

  /// The full name of the zone that a user gives as its name or the last part of its name, in upper
  /// or lower case, with "_" or blanks. Throws `PlaceFault` if no zone or different zones fit.
  [[nodiscard]] std::string find(std::string_view text) const;

  /// The bytes of the file of a zone. Throws `PlaceFault` if there is no such zone, or if the file
  /// is too large or cannot be read.
  [[nodiscard]] std::string read(std::string_view name) const;

  /// The town of a zone; nothing for a zone without a town, such as "Etc/UTC".
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
