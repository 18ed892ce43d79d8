#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veldrin {

/// The number that the whole text is, in decimal digits with an optional "-". Nothing for any other
/// text or for a number outside [least:most].
std::optional<std::int64_t> readWholeNumber(std::string_view text, std::int64_t least,
                                            std::int64_t most);

}  // namespace veldrin
