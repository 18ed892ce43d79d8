#pragma once

#include <string_view>

namespace veldrin {

/// Writes "PROGRAM: SENTENCE" to standard error, as `onOneLine` has it. Ignores a failed write.
void complain(std::string_view program, std::string_view sentence);

/// Writes that there is not enough memory. Allocates none.
void complainOfMemory(std::string_view program) noexcept;

}  // namespace veldrin
