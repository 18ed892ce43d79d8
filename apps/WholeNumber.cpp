#include "apps/WholeNumber.h"

#include <charconv>
#include <system_error>

namespace veldrin {

std::optional<std::int64_t> readWholeNumber(std::string_view text, std::int64_t least,
                                            std::int64_t most) {
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool isWhole = error == std::errc() && stop == end;
  if (!isWhole || number < least || number > most) return std::nullopt;
  return number;
}

}  // namespace veldrin
