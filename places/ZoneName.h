#pragma once

#include <string>
#include <string_view>

namespace veldrin {

// The names of time zones: one to three parts such as "America/Argentina/Ushuaia", of letters,
// digits, "_", "-" and "+". A name has no dot, so it cannot lead out of the database's folder.

/// Whether the database can have a zone of this name. Each zone begins with a capital letter; the
/// other files of the database ("posixrules", "zone.tab") and its second copies ("posix/",
/// "right/") do not.
bool isZoneName(std::string_view name);

/// Whether a user can mean a zone by the text: a name or a part of one, in any case and with blanks
/// for "_".
bool isZoneSpelling(std::string_view text);

/// What two spellings of one zone have in common: small letters, and "_" for a blank.
std::string foldedZone(std::string_view text);

/// The part of a name after the last "/".
std::string_view lastPart(std::string_view name);

}  // namespace veldrin
