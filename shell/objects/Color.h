#pragma once

#include <cstdint>

namespace veldrin {

/// An RGB colour; each component is 0 to 255.
struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Color&) const = default;
};

inline constexpr Color Black{};
inline constexpr Color White{255, 255, 255};

}  // namespace veldrin
