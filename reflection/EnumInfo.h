#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// An enumeration; its values are unknown.
class EnumInfo final : public Described<EnumInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.EnumInfo";

  void __Init() {
    mIsEnumTypeValue = true;
    mIsValueTypeValue = true;
  }
};

}  // namespace veldrin::Introspection
