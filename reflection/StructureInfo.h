#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A structure. Only its full name is known; no class table uses one.
class StructureInfo final : public Described<StructureInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.StructureInfo";

  void __Init() { mIsValueTypeValue = true; }
};

}  // namespace veldrin::Introspection
