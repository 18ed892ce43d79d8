#include "reflection/ArrayInfo.h"

#include <string>

#include "reflection/Journal.h"
#include "reflection/NewInfo.h"
#include "reflection/Registry.h"
#include "shell/objects/Failure.h"
#include "shell/objects/TypeCodeGrammar.h"

namespace veldrin::Introspection {

void ArrayInfo::fillTable(ClassTable<ArrayInfo>& table) {
  using OfRank = void (ArrayInfo::*)(std::int32_t, const Ref<TypeInfo>&);
  table.plainMethod<static_cast<OfRank>(&ArrayInfo::Constructor)>("Constructor"_s);
  table.overriding<&ArrayInfo::GetArrayRank>("GetArrayRank"_s);
  table.overriding<&ArrayInfo::GetElementType>("GetElementType"_s);
  table.sharedMethod<&ArrayInfo::Lookup>("Lookup"_s);
  table.sharedMethod<&ArrayInfo::RankSuffix>("RankSuffix"_s, Private);
  table.property<&ArrayInfo::mArrayRank>("mArrayRank"_s, Private);
  table.property<&ArrayInfo::mElementType>("mElementType"_s, Private);
  table.sharedProperty<&Registry::mArrayMap>("mArrayMap"_s, Private);
}

Ref<TypeInfo> ArrayInfo::Lookup(std::int32_t rank, const Ref<TypeInfo>& element) {
  const String name = element->QualifiedName() + RankSuffix(rank);
  if (Registry::mArrayMap && Registry::mArrayMap->HasKey(name)) {
    return fromVariant<Ref<TypeInfo>>(Registry::mArrayMap->Value(name));
  }
  return NewInfo<ArrayInfo>(rank, element);
}

String ArrayInfo::RankSuffix(std::int32_t rank) {
  if (rank < 1 || rank > MaximumRank) Raise<OutOfBoundsException>();
  return String("(" + std::string(static_cast<std::size_t>(rank - 1), ',') + ")");
}

void ArrayInfo::finalizeArrayMap() {
  if (!Registry::mArrayMap) return;
  // Clear all element types while the map holds the arrays. Otherwise releasing deeply nested
  // arrays would recurse.
  const auto values = Registry::mArrayMap->Values();
  for (const Variant& value : values->elements) {
    Object* const info = value.object();
    if (RuntimeObjectIsa(info, ArrayInfo::__Lookup())) static_cast<ArrayInfo*>(info)->__Exit();
  }
  Registry::mArrayMap = nullptr;
}

void ArrayInfo::Constructor(std::int32_t rank, const Ref<TypeInfo>& element) {
  const String suffix = RankSuffix(rank);
  const bool isArray = RuntimeObjectIsa(element.get(), ArrayInfo::__Lookup());
  totalRank_ = rank + (isArray ? static_cast<const ArrayInfo&>(*element).totalRank_ : 0);
  if (totalRank_ > MaximumTotalRank) Raise<StackOverflowException>();
  mFullyQualifiedName = element->QualifiedName() + suffix;
  mNameValue = element->Name() + suffix;
  mArrayRank = rank;
  mElementType = element;
  mHasElementTypeValue = true;
  mIsArrayValue = true;
  if (!Registry::mArrayMap) Registry::mArrayMap = New<Dictionary>();
  Journal::setValue(Registry::mArrayMap, mFullyQualifiedName, Ref<ArrayInfo>(this));
}

}  // namespace veldrin::Introspection
