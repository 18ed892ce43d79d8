#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veldrin {

/// What became of a run of veldrin-calendar.
struct RunOutcome {
  int status = 0;                            ///< the exit status to return
  std::string output = {};                   ///< text for standard output
  std::vector<std::string> complaints = {};  ///< sentences for standard error
  bool isOutOfMemory = false;                ///< memory ran out, even for a sentence about it

  /// Adds that a file could not be written, by the host's error number, unless that is 0.
  void noteWriting(const std::string& where, std::int32_t error);
};

/// The host's words for an error number.
std::string reasonOf(std::int32_t error);

}  // namespace veldrin
