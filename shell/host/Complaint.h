#pragma once

#include <string_view>

namespace veldrin {

/// Writes "PROGRAM: SENTENCE" to standard error as one line (`onOneLine`). Ignores failed writes.
void complain(std::string_view program, std::string_view sentence);

/// Writes that there is not enough memory. Does not allocate memory.
void complainOfMemory(std::string_view program) noexcept;

}  // namespace veldrin
