#pragma once

#include <string_view>

namespace veldrin {

// A zone file, all numbers big-endian (RFC 8536, 3):
//
//   file   = header block                         version 1
//          | header block header block footer     versions 2 and up
//   header = "TZif"; version, 1 byte; unused, 15 bytes; six counts, 4 bytes each: UT indicators,
//            standard time indicators, leap seconds, changes, types, characters
//   block  = times of the changes, 4 bytes each (8 in a second block); their types, 1 each; types,
//            6 each; characters; leap seconds, a time + 4 each; both kinds of indicators, 1 each
//   footer = LF rule? LF                          the rule as in the variable TZ of POSIX

/// Whether each block lies inside the file. The library that reads zone files allocates as much
/// memory as the counts of a header ask for, so check a file before the library reads it.
bool isWholeZoneFile(std::string_view bytes);

}  // namespace veldrin
