#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// The interface of a text output: `Write`, `Flush`, `WriteError`.
struct Writeable : DescribedInterface<Writeable> {
  static constexpr FixedString FullName = "Writeable";
  using Operations = std::tuple<MethodShape<void, String>, MethodShape<void>, MethodShape<bool>>;
};

}  // namespace veldrin
