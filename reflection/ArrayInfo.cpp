#include "reflection/ArrayInfo.h"

#include <string>

#include "reflection/NewInfo.h"

namespace veldrin::Introspection {

void ArrayInfo::fillTable(ClassTable<ArrayInfo>& table) {
  table.plainMethod<&ArrayInfo::Constructor>("Constructor"_s);
  table.overriding<&ArrayInfo::GetArrayRank>("GetArrayRank"_s);
  table.overriding<&ArrayInfo::GetElementType>("GetElementType"_s);
  table.sharedMethod<&ArrayInfo::Lookup>("Lookup"_s);
  table.sharedMethod<&ArrayInfo::RankSuffix>("RankSuffix"_s);
}

Ref<TypeInfo> ArrayInfo::Lookup(std::int32_t rank, const Ref<TypeInfo>& element) {
  const String name = element->QualifiedName() + RankSuffix(rank);
  if (mArrayMap && mArrayMap->HasKey(name)) {
    return fromVariant<Ref<TypeInfo>>(mArrayMap->Value(name));
  }
  return NewInfo<ArrayInfo>(rank, element);
}

String ArrayInfo::RankSuffix(std::int32_t rank) {
  std::string commas(static_cast<std::size_t>(rank > 1 ? rank - 1 : 0), ',');
  return String("(" + std::move(commas) + ")");
}

void ArrayInfo::finalizeArrayMap() {
  if (!mArrayMap) return;
  // While the map still holds them all: an array of arrays of arrays is then given up one by one,
  // however deep it goes.
  const auto values = mArrayMap->Values();
  for (const Variant& info : values->elements) {
    fromVariant<Ref<ArrayInfo>>(info)->__Exit();
  }
  mArrayMap = nullptr;
}

void ArrayInfo::Constructor(std::int32_t rank, const Ref<TypeInfo>& element) {
  const String suffix = RankSuffix(rank);
  mFullyQualifiedName = element->QualifiedName() + suffix;
  mNameValue = element->Name() + suffix;
  mArrayRank = rank;
  mElementType = element;
  mHasElementTypeValue = true;
  mIsArrayValue = true;
  if (!mArrayMap) mArrayMap = New<Dictionary>();
  mArrayMap->Value(mFullyQualifiedName, Ref<ArrayInfo>(this));
}

}  // namespace veldrin::Introspection
