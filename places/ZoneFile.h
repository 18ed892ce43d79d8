#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "places/PosixRule.h"

namespace veldrin {

// A zone file, all numbers big-endian (RFC 8536, 3):
//
//   file   = header(4) block(4)                                  version 1
//          | header(4) block(4) header(8) block(8) footer        versions 2 and up
//   header = "TZif" version(1) unused(15) and six counts of 4 bytes each: Universal Time marks,
//            standard time marks, leap seconds, changes, types, characters
//   block  = the times of the changes, 4 or 8 bytes each; their types, 1 each; the types, 6 each;
//            characters; leap seconds, the size of a time + 4 each; the two kinds of marks, 1 each
//   footer = LF rule? LF                                         see PosixRule.h

/// A zone file in two: the changes that it lists, and the rule that holds after them.
struct ZoneFile {
  std::string changes;      ///< a zone file as well, with no rule
  std::int64_t lastChange;  ///< seconds since 1970-01-01 00:00 UTC; the least if there is none
  std::optional<PosixRule> rule;  ///< nothing if the last change is for good
};

/// Takes a zone file apart; nothing if a block does not lie inside the file, a leap second is
/// counted, or the rule cannot be read. The library that reads the changes sets aside as much
/// memory as the counts ask for, so this comes first.
std::optional<ZoneFile> readZoneFile(std::string_view bytes);

}  // namespace veldrin
