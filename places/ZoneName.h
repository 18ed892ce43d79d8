#pragma once

#include <string>
#include <string_view>

namespace veldrin {

// The names of time zones: one to three parts such as "America/Argentina/Ushuaia", of letters,
// digits, "_", "-" and "+". A name has no dot, so it cannot lead out of the database's folder.

/// Whether the database can have a zone with this name. Zones begin with a capital letter, unlike
/// the other files of a database ("posixrules", "zone.tab") and its copies ("posix/", "right/").
bool isZoneName(std::string_view name);

/// Whether the text may be a zone's name or its last part, in any letter case, with "_" or blanks.
bool isZoneSpelling(std::string_view text);

/// The text in lower case, with "_" for each blank. Equal for all spellings of a name.
std::string foldedZone(std::string_view text);

/// The part of a name after the last "/".
std::string_view lastPart(std::string_view name);

}  // namespace veldrin
