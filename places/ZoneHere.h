#pragma once

#include <filesystem>
#include <string>

namespace veldrin {

/// The name of this computer's time zone, from the variable `TZ`, else from the target of the link
/// `localtime` in the folder `settings`, else from the first line of the file `timezone` in it. The
/// name in `TZ` is not checked. Throws `PlaceFault` if `TZ` is not set and there is no other name.
std::string zoneHere(const std::filesystem::path& settings = "/etc");

}  // namespace veldrin
