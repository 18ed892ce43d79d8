#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A structure, known by its full name alone: no class table has one.
class StructureInfo final : public Described<StructureInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.StructureInfo";

  void __Init() { mIsValueTypeValue = true; }
};

}  // namespace veldrin::Introspection
