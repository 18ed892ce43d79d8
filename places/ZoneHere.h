#pragma once

#include <filesystem>
#include <string>

namespace veldrin {

/// The name of this machine's time zone: that in `TZ`, else the one that the link `localtime` in
/// `settings` leads to, else the first line of the file `timezone` there. Throws `PlaceFault` if
/// none of them has a name, which need not be that of a zone of the database.
std::string zoneHere(const std::filesystem::path& settings = "/etc");

}  // namespace veldrin
