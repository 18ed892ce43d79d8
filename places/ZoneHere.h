#pragma once

#include <filesystem>
#include <string>

namespace veldrin {

/// The name of this computer's time zone, from the variable `TZ`, else from the target of the link
/// `localtime` in the folder `settings`, else from the first line of its file `timezone`. The
/// database may lack this zone. Throws `PlaceFault` if none of the three has a name.
std::string zoneHere(const std::filesystem::path& settings = "/etc");

}  // namespace veldrin
