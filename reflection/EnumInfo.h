#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// An enumeration, known by its full name alone.
class EnumInfo final : public Described<EnumInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.EnumInfo";

  void __Init() {
    mIsEnumTypeValue = true;
    mIsValueTypeValue = true;
  }
};

}  // namespace veldrin::Introspection
