#pragma once

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A built-in type, such as "Int32" or "String".
class GenericPrimitiveTypeInfo : public Described<GenericPrimitiveTypeInfo, TypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.GenericPrimitiveTypeInfo";

  void __Init() {
    mIsPrimitiveTypeValue = true;
    mIsValueTypeValue = true;
  }
};

}  // namespace veldrin::Introspection
