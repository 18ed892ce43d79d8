#include "places/ZoneHere.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <system_error>

#include "places/PlaceFault.h"
#include "places/ZoneName.h"

namespace veldrin {
namespace {

namespace fs = std::filesystem;

/// The name of the zone in a path into a time zone database; empty for any other path.
std::string nameInPath(std::string_view path) {
  constexpr std::string_view Folder = "/zoneinfo/";
  const std::size_t at = path.rfind(Folder);
  return at == std::string_view::npos ? "" : std::string(path.substr(at + Folder.size()));
}

/// The name of the zone in a value of `TZ`, which is ":name", "name", a path, or empty for UTC.
std::string nameInVariable(std::string_view value) {
  if (value.starts_with(':')) value.remove_prefix(1);
  if (value.empty()) return "UTC";
  return value.starts_with('/') ? nameInPath(value) : std::string(value);
}

/// The zone that a link leads to; empty if it leads to none. Stops at the first path into a
/// database, because the file of a zone may be a link to the file of another zone.
std::string nameOfLink(fs::path link) {
  constexpr int MostLinks = 8;
  for (int count = 0; count < MostLinks; ++count) {
    std::error_code error;
    const fs::path target = fs::read_symlink(link, error);
    if (error) return "";
    link = (link.parent_path() / target).lexically_normal();
    if (std::string name = nameInPath(link.native()); !name.empty()) return name;
  }
  return "";
}

std::string firstLine(const fs::path& path) {
  std::array<char, 128> line{};
  std::ifstream(path).getline(line.data(), line.size());
  return line.data();
}

}  // namespace

std::string zoneHere(const fs::path& settings) {
  if (const char* chosen = std::getenv("TZ")) return nameInVariable(chosen);
  for (std::string name : {nameOfLink(settings / "localtime"), firstLine(settings / "timezone")}) {
    if (isZoneName(name)) return name;
  }
  throw PlaceFault("The name of this computer's time zone is unknown.");
}

}  // namespace veldrin
