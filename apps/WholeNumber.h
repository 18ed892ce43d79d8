#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veldrin {

/// Reads a whole number: only decimal digits after an optional "-". Returns nothing for any other
/// text or a number outside [least:most].
std::optional<std::int64_t> readWholeNumber(std::string_view text, std::int64_t least,
                                            std::int64_t most);

}  // namespace veldrin
