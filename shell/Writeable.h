#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// The interface of what text can be written to: `Write`, `Flush`, `WriteError`.
struct Writeable : DescribedInterface<Writeable> {
  static constexpr FixedString FullName = "Writeable";
  static constexpr std::size_t OperationCount = 3;
};

}  // namespace veldrin
