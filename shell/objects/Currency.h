#pragma once

#include <cstdint>

namespace veldrin {

/// An amount of money, in ten-thousandths of its unit.
struct Currency {
  std::int64_t tenThousandths = 0;

  bool operator==(const Currency&) const = default;
};

}  // namespace veldrin
