#include "places/ZoneFolder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <ios>
#include <system_error>
#include <utility>

#include "places/PlaceFault.h"
#include "places/ZoneName.h"
#include "places/ZoneTable.h"

namespace veldrin {
namespace {

namespace fs = std::filesystem;

/// The largest file that is read. The files of real databases are much smaller.
constexpr std::uintmax_t MostBytes = 262'144;

bool isFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

bool isWithin(const fs::path& path, const fs::path& folder) {
  return std::ranges::mismatch(folder, path).in1 == folder.end();
}

/// The whole file; nothing if it is too large or cannot be read.
std::optional<std::string> contents(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error || size > MostBytes) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!file.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
  return bytes;
}

[[noreturn]] void failOfNoZone(std::string_view text) {
  // Do not repeat a text with a wrong spelling: it may be long or have any bytes.
  if (!isZoneSpelling(text)) throw PlaceFault("There is no time zone of that name.");
  throw PlaceFault("There is no time zone " + std::string(text) + ".");
}

[[noreturn]] void failOfSeveral(const std::vector<std::string>& zones) {
  constexpr std::size_t MostNamed = 5;
  std::string sentence = "Several time zones have that name: ";
  for (std::size_t index = 0; index < std::min(MostNamed, zones.size()); ++index) {
    sentence += (index > 0 ? ", " : "") + zones[index];
  }
  throw PlaceFault(sentence + (zones.size() > MostNamed ? " and others." : "."));
}

}  // namespace

ZoneFolder::ZoneFolder(const fs::path& folder) {
  std::error_code error;
  root_ = fs::canonical(folder, error);
  if (error || !isFolder(root_)) {
    throw PlaceFault("The folder of the time zone database is missing.");
  }
}

ZoneFolder ZoneFolder::ofMachine() {
  const char* chosen = std::getenv("TZDIR");
  if (chosen != nullptr && *chosen != '\0') return ZoneFolder(chosen);
  constexpr std::array UsualFolders = {"/usr/share/zoneinfo", "/usr/lib/zoneinfo",
                                       "/usr/share/lib/zoneinfo", "/etc/zoneinfo"};
  const auto* const found = std::ranges::find_if(UsualFolders, isFolder);
  if (found == UsualFolders.end()) throw PlaceFault("This computer has no time zone database.");
  return ZoneFolder(*found);
}

std::vector<std::string> ZoneFolder::names() const {
  constexpr int DeepestFolder = 2;  // America/Argentina/Ushuaia
  constexpr std::size_t MostEntries = 10'000;
  std::vector<std::string> found;
  std::error_code error;
  fs::recursive_directory_iterator entry(root_, fs::directory_options::skip_permission_denied,
                                         error);
  const std::size_t rootLength = root_.native().size() + 1;
  for (std::size_t count = 0; !error && count < MostEntries && entry != fs::end(entry);
       entry.increment(error), ++count) {
    std::string name = entry->path().native().substr(rootLength);
    const bool isFile = entry->is_symlink(error) || !entry->is_directory(error);
    if (!isZoneName(name) || entry.depth() == DeepestFolder) entry.disable_recursion_pending();
    if (isFile && isZoneName(name)) found.push_back(std::move(name));
  }
  std::ranges::sort(found);
  return found;
}

std::string ZoneFolder::find(std::string_view text) const {
  if (!isZoneSpelling(text)) failOfNoZone(text);
  std::string exact(text);
  std::ranges::replace(exact, ' ', '_');
  if (has(exact)) return exact;

  const std::string folded = foldedZone(text);
  std::vector<std::string> withLastPart;
  for (std::string& name : names()) {
    const std::string candidate = foldedZone(name);
    if (candidate == folded && has(name)) return std::move(name);
    if (lastPart(candidate) == folded && has(name)) withLastPart.push_back(std::move(name));
  }
  return oneOf(withLastPart, text);
}

std::string ZoneFolder::oneOf(const std::vector<std::string>& zones, std::string_view text) const {
  if (zones.empty()) failOfNoZone(text);
  if (!areTheSame(zones)) failOfSeveral(zones);
  // Databases keep the old names of a zone; only its current name has a town.
  const auto current = std::ranges::find_if(
      zones, [this](const std::string& name) { return placeOf(name).has_value(); });
  return current == zones.end() ? zones.front() : *current;
}

bool ZoneFolder::areTheSame(const std::vector<std::string>& zones) const {
  if (zones.size() == 1) return true;
  const std::string first = read(zones.front());
  return std::ranges::all_of(zones, [&](const std::string& zone) { return read(zone) == first; });
}

std::string ZoneFolder::read(std::string_view name) const {
  const auto file = isZoneName(name) ? inside(name) : std::nullopt;
  if (!file) failOfNoZone(name);
  auto bytes = contents(*file);
  if (!bytes)
    throw PlaceFault("The file of the time zone " + std::string(name) + " cannot be read.");
  return *std::move(bytes);
}

std::optional<ZonePlace> ZoneFolder::placeOf(std::string_view name) const {
  if (!isZoneName(name)) return std::nullopt;
  auto place = placeIn("zone.tab", name);
  return place ? place : placeIn("zone1970.tab", name);
}

std::optional<ZonePlace> ZoneFolder::placeIn(const char* table, std::string_view name) const {
  const auto file = inside(table);
  const auto rows = file ? contents(*file) : std::nullopt;
  return rows ? placeInTable(*rows, name) : std::nullopt;
}

bool ZoneFolder::has(std::string_view name) const {
  return isZoneName(name) && inside(name).has_value();
}

/// The regular file of a name, with links resolved; nothing if the folder has no such file.
std::optional<fs::path> ZoneFolder::inside(std::string_view name) const {
  std::error_code error;
  fs::path file = fs::canonical(root_ / name, error);
  if (error || !isWithin(file, root_) || !fs::is_regular_file(file, error)) return std::nullopt;
  return file;
}

}  // namespace veldrin
