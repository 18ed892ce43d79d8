#include "reflection/Introspection.h"

#include <array>
#include <string_view>

#include "reflection/ArrayInfo.h"
#include "reflection/ClassInfo.h"
#include "reflection/EnumInfo.h"
#include "reflection/NewInfo.h"
#include "reflection/PointerTypeInfo.h"
#include "reflection/Registry.h"
#include "reflection/StructureInfo.h"
#include "reflection/VariantInfo.h"
#include "shell/objects/TypeCodeGrammar.h"

namespace veldrin::Introspection {
namespace {

/// A built-in type: type code, name, and the function that creates its description.
struct Intrinsic {
  StringConstant code;
  StringConstant name;
  Ref<TypeInfo> (*make)(const String& name);
};

template <class Info>
Ref<TypeInfo> make(const String& name) {
  return NewInfo<Info>(name);
}

constexpr std::array Intrinsics{
    Intrinsic{"b"_s, "Boolean"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"i1"_s, "Int8"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"i2"_s, "Int16"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"i4"_s, "Int32"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"i8"_s, "Int64"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"u1"_s, "UInt8"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"u2"_s, "UInt16"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"u4"_s, "UInt32"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"u8"_s, "UInt64"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"f4"_s, "Single"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"f8"_s, "Double"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"e"_s, "Currency"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"c"_s, "Color"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"s"_s, "String"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"v"_s, "Variant"_s, make<VariantInfo>},
    Intrinsic{"p"_s, "Ptr"_s, make<PointerTypeInfo>},
    Intrinsic{"?<CString>"_s, "CString"_s, make<PointerTypeInfo>},
    Intrinsic{"?<PString>"_s, "PString"_s, make<PointerTypeInfo>},
    Intrinsic{"?<WString>"_s, "WString"_s, make<PointerTypeInfo>},
    Intrinsic{"?<CFStringRef>"_s, "CFStringRef"_s, make<PointerTypeInfo>},
    Intrinsic{"?<WindowPtr>"_s, "WindowPtr"_s, make<PointerTypeInfo>},
    Intrinsic{"?<OSType>"_s, "OSType"_s, make<GenericPrimitiveTypeInfo>},
    Intrinsic{"o<Object>"_s, "Object"_s,
              [](const String&) -> Ref<TypeInfo> { return ClassInfo::Lookup(nullptr); }},
};

Ref<TypeInfo> find(const Ref<Dictionary>& map, const String& key) {
  return fromVariant<Ref<TypeInfo>>(map->Lookup(key, {}));
}

Ref<TypeInfo> infoOfName(CodeKind kind, const String& name) {
  switch (kind) {
    case CodeKind::Object:
      return ClassInfo::Lookup(name);
    case CodeKind::Enumeration:
      return NewInfo<EnumInfo>(name);
    case CodeKind::Structure:
      return NewInfo<StructureInfo>(name);
    default:
      return nullptr;
  }
}

/// The description of the type of a code. `totalRank` is the total number of dimensions of the
/// arrays around it. The maps have no array codes, so only the innermost code is copied into a
/// `String`.
Ref<TypeInfo> infoOf(std::string_view code, std::int32_t totalRank) {
  RuntimeStackCheck();
  const auto parts = readTypeCode(code);
  if (!parts || totalRank + parts->rank > ArrayInfo::MaximumTotalRank) return nullptr;
  if (parts->kind == CodeKind::Array) {
    const Ref<TypeInfo> element = infoOf(parts->inner, totalRank + parts->rank);
    return element ? ArrayInfo::Lookup(parts->rank, element) : nullptr;
  }
  if (Ref<TypeInfo> intrinsic = find(Registry::intrinsicTypeCodeMap, String(code)))
    return intrinsic;
  const String name(parts->inner);
  if (Ref<TypeInfo> known = find(GetFQNTypeInfoMap(), name)) return known;
  return infoOfName(parts->kind, name);
}

}  // namespace

Ref<TypeInfo> GetType(const Ref<Object>& object) {
  return object ? ClassInfo::Lookup(RuntimeClassOf(object.get())) : nullptr;
}

Ref<TypeInfo> GetInfoFromTypeCode(const String& code) {
  if (!Registry::intrinsicTypeCodeMap) Registry::intrinsicTypeCodeMap = MakeIntrinsicTypeCodeMap();
  return infoOf(code.view(), 0);
}

Ref<Dictionary> GetFQNTypeInfoMap() {
  if (!Registry::fqnTypeInfoMap) Registry::fqnTypeInfoMap = New<Dictionary>();
  return Registry::fqnTypeInfoMap;
}

Ref<Dictionary> MakeIntrinsicTypeCodeMap() {
  Ref<Dictionary> map = New<Dictionary>();
  for (const Intrinsic& intrinsic : Intrinsics) {
    map->Value(intrinsic.code, intrinsic.make(intrinsic.name));
  }
  return map;
}

void finalizeModule() {
  ClassInfo::breakCycles();
  Registry::intrinsicTypeCodeMap = nullptr;
  Registry::fqnTypeInfoMap = nullptr;
}

void finalizeReflection() {
  ArrayInfo::finalizeArrayMap();
  ClassInfo::finalizeClassFQNToRefMap();
  ClassInfo::finalizeClassRefMap();
  finalizeModule();
}

}  // namespace veldrin::Introspection
