#include "places/ZoneTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <system_error>

#include "places/ZoneName.h"

namespace veldrin {
namespace {

/// Removes the text up to a mark, and the mark. Returns that text.
std::string_view take(std::string_view& text, char mark) {
  const std::string_view taken = text.substr(0, text.find(mark));
  text.remove_prefix(std::min(taken.size() + 1, text.size()));
  return taken;
}

/// The number in the `count` digits at `from`; nothing if these characters are not a number.
std::optional<int> digits(std::string_view text, std::size_t from, std::size_t count) {
  if (text.size() < from + count) return std::nullopt;
  int value = 0;
  const char* const end = text.data() + from + count;
  const auto [stop, error] = std::from_chars(text.data() + from, end, value);
  if (error != std::errc() || stop != end || value < 0) return std::nullopt;
  return value;
}

/// Reads an angle of ISO 6709. Returns degrees, rounded to four digits after the point.
std::optional<double> angle(std::string_view text, std::size_t degreeDigits, double limit) {
  const bool hasSeconds = text.size() == 1 + degreeDigits + 4;
  if (!hasSeconds && text.size() != 1 + degreeDigits + 2) return std::nullopt;
  const auto degrees = digits(text, 1, degreeDigits);
  const auto minutes = digits(text, 1 + degreeDigits, 2);
  const auto seconds = hasSeconds ? digits(text, 1 + degreeDigits + 2, 2) : std::optional(0);
  if (!degrees || !minutes || !seconds || *minutes > 59 || *seconds > 59) return std::nullopt;
  const double magnitude = *degrees + (*minutes * 60 + *seconds) / 3600.0;
  if (magnitude > limit) return std::nullopt;
  return std::round((text.front() == '-' ? -magnitude : magnitude) * 1e4) / 1e4;
}

std::optional<ZonePlace> placeAt(std::string_view coordinates, std::string_view zone) {
  const std::size_t split = coordinates.find_first_of("+-", 1);
  if (split == std::string_view::npos || coordinates.find_first_of("+-") != 0) return std::nullopt;
  const auto latitude = angle(coordinates.substr(0, split), 2, 90.0);
  const auto longitude = angle(coordinates.substr(split), 3, 180.0);
  if (!latitude || !longitude) return std::nullopt;
  std::string name(lastPart(zone));
  std::ranges::replace(name, '_', ' ');
  return ZonePlace{name, *latitude, *longitude};
}

}  // namespace

std::optional<ZonePlace> placeInTable(std::string_view rows, std::string_view zone) {
  while (!rows.empty()) {
    std::string_view row = take(rows, '\n');
    if (row.starts_with('#')) continue;
    take(row, '\t');
    const std::string_view coordinates = take(row, '\t');
    if (take(row, '\t') == zone) return placeAt(coordinates, zone);
  }
  return std::nullopt;
}

}  // namespace veldrin
