#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veldrin {

/// The result of a run of veldrin-calendar.
struct RunOutcome {
  int status = 0;                            ///< the exit status to return
  std::string output = {};                   ///< text for standard output
  std::vector<std::string> complaints = {};  ///< sentences for standard error
  bool isOutOfMemory = false;                ///< there was no memory even for a complaint

  /// Adds a complaint about `where` and sets the status to `Failed`, unless the error number is 0.
  void noteWriting(const std::string& where, std::int32_t error);
};

/// The text of an error number.
std::string reasonOf(std::int32_t error);

}  // namespace veldrin
