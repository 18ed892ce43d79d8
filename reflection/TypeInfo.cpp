#include "reflection/TypeInfo.h"

#include <string_view>

#include "reflection/ConstructorInfo.h"
#include "reflection/MethodInfo.h"
#include "reflection/PropertyInfo.h"

namespace veldrin::Introspection {

void TypeInfo::fillTable(ClassTable<TypeInfo>& table) {
  using ByName = void (TypeInfo::*)(const String&);
  table.method<static_cast<ByName>(&TypeInfo::Constructor)>("Constructor"_s);
  table.method<&TypeInfo::GetArrayRank>("GetArrayRank"_s);
  table.method<&TypeInfo::GetConstructors>("GetConstructors"_s);
  table.method<&TypeInfo::GetElementType>("GetElementType"_s);
  table.method<&TypeInfo::GetMethods>("GetMethods"_s);
  table.method<&TypeInfo::GetProperties>("GetProperties"_s);
  table.method<&TypeInfo::IsSubclassOf>("IsSubclassOf"_s);

  table.readOnlyProperty<&TypeInfo::BaseType>("BaseType"_s);
  table.readOnlyProperty<&TypeInfo::QualifiedName>("FullName"_s);
  table.readOnlyProperty<&TypeInfo::HasElementType>("HasElementType"_s);
  table.readOnlyProperty<&TypeInfo::IsArray>("IsArray"_s);
  table.readOnlyProperty<&TypeInfo::IsClass>("IsClass"_s);
  table.readOnlyProperty<&TypeInfo::IsEnum>("IsEnum"_s);
  table.readOnlyProperty<&TypeInfo::IsInterface>("IsInterface"_s);
  table.readOnlyProperty<&TypeInfo::IsPointer>("IsPointer"_s);
  table.readOnlyProperty<&TypeInfo::IsPrimitive>("IsPrimitive"_s);
  table.readOnlyProperty<&TypeInfo::IsValueType>("IsValueType"_s);
  table.property<&TypeInfo::mBasetype>("mBasetype"_s, Private);
  table.property<&TypeInfo::mConstructorList>("mConstructorList"_s, Private);
  table.property<&TypeInfo::mFullyQualifiedName>("mFullyQualifiedName"_s, Private);
  table.property<&TypeInfo::mHasElementTypeValue>("mHasElementTypeValue"_s, Private);
  table.property<&TypeInfo::mIsArrayValue>("mIsArrayValue"_s, Private);
  table.property<&TypeInfo::mIsByRefTypeValue>("mIsByRefTypeValue"_s, Private);
  table.property<&TypeInfo::mIsClassTypeValue>("mIsClassTypeValue"_s, Private);
  table.property<&TypeInfo::mIsEnumTypeValue>("mIsEnumTypeValue"_s, Private);
  table.property<&TypeInfo::mIsInterfaceTypeValue>("mIsInterfaceTypeValue"_s, Private);
  table.property<&TypeInfo::mIsPointerTypeValue>("mIsPointerTypeValue"_s, Private);
  table.property<&TypeInfo::mIsPrimitiveTypeValue>("mIsPrimitiveTypeValue"_s, Private);
  table.property<&TypeInfo::mIsValueTypeValue>("mIsValueTypeValue"_s, Private);
  table.property<&TypeInfo::mMethodList>("mMethodList"_s, Private);
  table.property<&TypeInfo::mPropertyList>("mPropertyList"_s, Private);
}

TypeInfo::TypeInfo() = default;
TypeInfo::~TypeInfo() = default;

void TypeInfo::__Exit() {
  mBasetype = nullptr;
  mConstructorList = nullptr;
  mMethodList = nullptr;
  mPropertyList = nullptr;
}

void TypeInfo::Constructor(const String& fullName) {
  const std::string_view text = fullName.view();
  mFullyQualifiedName = fullName;
  mNameValue = String(text.substr(text.rfind('.') + 1));
}

Ref<Array<Ref<ConstructorInfo>>> TypeInfo::GetConstructors() const {
  return copyOf(mConstructorList);
}

Ref<Array<Ref<MethodInfo>>> TypeInfo::GetMethods() const {
  return copyOf(mMethodList);
}

Ref<Array<Ref<PropertyInfo>>> TypeInfo::GetProperties() const {
  return copyOf(mPropertyList);
}

}  // namespace veldrin::Introspection
