#pragma once

#include <cstdint>

namespace veldrin {

/// An amount of money. No class table uses this type; see docs/names.md.
struct Currency {
  std::int64_t tenThousandths = 0;

  bool operator==(const Currency&) const = default;
};

}  // namespace veldrin
