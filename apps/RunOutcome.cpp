#include "apps/RunOutcome.h"

#include <system_error>

#include "apps/ProgramMain.h"

namespace veldrin {

void RunOutcome::noteWriting(const std::string& where, std::int32_t error) {
  if (error == 0) return;
  complaints.push_back("Writing to " + where + " failed: " + reasonOf(error) + ".");
  status = Failed;
}

std::string reasonOf(std::int32_t error) {
  return std::generic_category().message(error);
}

}  // namespace veldrin
