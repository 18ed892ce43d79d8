#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// The type `Variant`.
class VariantInfo final : public Described<VariantInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.VariantInfo";
};

}  // namespace veldrin::Introspection
