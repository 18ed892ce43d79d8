#pragma once

#include "reflection/GenericPrimitiveTypeInfo.h"

namespace veldrin::Introspection {

/// A built-in pointer type without reference counting, such as "Ptr" or "CString".
class PointerTypeInfo final : public Described<PointerTypeInfo, GenericPrimitiveTypeInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.PointerTypeInfo";

  void __Init() { mIsPointerTypeValue = true; }
};

}  // namespace veldrin::Introspection
