#pragma once

#include <string_view>

namespace veldrin {

// A zone file, all numbers big-endian (RFC 8536, 3):
//
//   file   = header(4) block(4)                                  version 1
//          | header(4) block(4) header(8) block(8) footer        versions 2 and up
//   header = "TZif" version(1) unused(15) and six counts of 4 bytes each: Universal Time marks,
//            standard time marks, leap seconds, changes, types, characters
//   block  = the times of the changes, 4 or 8 bytes each; their types, 1 each; the types, 6 each;
//            characters; leap seconds, the size of a time + 4 each; the two kinds of marks, 1 each
//   footer = LF rule? LF                                         POSIX, TZ

/// Whether each block lies inside the file. The library that reads zone files allocates as much
/// memory as the counts of a header ask for, so check a file before the library sees it.
bool isWholeZoneFile(std::string_view bytes);

}  // namespace veldrin
