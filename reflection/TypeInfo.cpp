#include "reflection/TypeInfo.h"

#include "reflection/ConstructorInfo.h"
#include "reflection/MethodInfo.h"
#include "reflection/PropertyInfo.h"
#include "shell/objects/NewArray.h"

namespace veldrin::Introspection {

void TypeInfo::fillTable(ClassTable<TypeInfo>& table) {
  table.method<&TypeInfo::Constructor>("Constructor"_s);
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
}

TypeInfo::TypeInfo() = default;
TypeInfo::~TypeInfo() = default;

void TypeInfo::__Exit() {
  mBasetype = nullptr;
  mConstructorList.clear();
  mMethodList.clear();
  mPropertyList.clear();
}

void TypeInfo::Constructor(const String& fullName) {
  const std::string_view text = fullName.view();
  mFullyQualifiedName = fullName;
  mNameValue = String(text.substr(text.rfind('.') + 1));
}

Ref<Array<Ref<ConstructorInfo>>> TypeInfo::GetConstructors() const {
  return newArray(mConstructorList);
}

Ref<Array<Ref<MethodInfo>>> TypeInfo::GetMethods() const {
  return newArray(mMethodList);
}

Ref<Array<Ref<PropertyInfo>>> TypeInfo::GetProperties() const {
  return newArray(mPropertyList);
}

}  // namespace veldrin::Introspection
