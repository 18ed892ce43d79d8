#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A structure; its fields are unknown. No class table uses a structure.
class StructureInfo final : public Described<StructureInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.StructureInfo";

  void __Init() { mIsValueTypeValue = true; }
};

}  // namespace veldrin::Introspection
