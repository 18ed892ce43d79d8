#include "reflection/PropertyInfo.h"

#include "reflection/Introspection.h"
#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void PropertyInfo::fillTable(ClassTable<PropertyInfo>& table) {
  using Read = Variant (PropertyInfo::*)(const Ref<Object>&) const;
  using Write = void (PropertyInfo::*)(const Ref<Object>&, const Variant&) const;
  constexpr auto Get = static_cast<Read>(&PropertyInfo::Value);
  constexpr auto Set = static_cast<Write>(&PropertyInfo::Value);
  table.overriding<&PropertyInfo::FilterAttributes>("FilterAttributes"_s);
  table.overriding<&PropertyInfo::Constructor>("Constructor"_s, PublicHidden);
  table.method<Get>("Value"_s);
  table.method<Set>("Value"_s, Public, Flags::Assigns);

  table.readOnlyProperty<&PropertyInfo::CanRead>("CanRead"_s);
  table.readOnlyProperty<&PropertyInfo::CanWrite>("CanWrite"_s);
  table.readOnlyProperty<&PropertyInfo::IsShared>("IsShared"_s);
  table.readOnlyProperty<&PropertyInfo::PropertyType>("PropertyType"_s);
  // Fields used to make calls are read-only: a wrong offset would access memory outside the object.
  table.readOnlyField<&PropertyInfo::mGetInvoker>("mGetInvoker"_s, Private);
  table.readOnlyField<&PropertyInfo::mGetterValue>("mGetterValue"_s, Private);
  table.readOnlyField<&PropertyInfo::mIsShared>("mIsShared"_s, Private);
  table.readOnlyField<&PropertyInfo::mOffsetParamValue>("mOffsetParamValue"_s, Private);
  table.readOnlyField<&PropertyInfo::mOwnerClassRef>("mOwnerClassRef"_s, Private);
  table.readOnlyField<&PropertyInfo::mSetInvoker>("mSetInvoker"_s, Private);
  table.readOnlyField<&PropertyInfo::mSetterValue>("mSetterValue"_s, Private);
  table.property<&PropertyInfo::mTypeValue>("mTypeValue"_s, Private);
}

void PropertyInfo::Constructor(const MemberRow* row, ClassRecord* owner) {
  MemberInfo::Constructor(row, owner);
  if (row == nullptr) return;
  const auto& propertyRow = static_cast<const PropertyRow&>(*row);
  mTypeValue = GetInfoFromTypeCode(propertyRow.type);
  mGetterValue = propertyRow.getter;
  mSetterValue = propertyRow.setter;
  mGetInvoker = propertyRow.reflectionGet;
  mSetInvoker = propertyRow.reflectionSet;
  mOffsetParamValue = propertyRow.fieldOffset;
}

void PropertyInfo::FilterAttributes() {
  if (removeAttribute("__Shared")) mIsShared = true;
  MemberInfo::FilterAttributes();
}

Variant PropertyInfo::Value(const Ref<Object>& object) const {
  requireInstance(object);
  if (!CanRead()) Raise<RuntimeException>();
  return RuntimeGenericGetter(mGetInvoker, mGetterValue, object.get(), mOffsetParamValue);
}

void PropertyInfo::Value(const Ref<Object>& object, const Variant& value) const {
  requireInstance(object);
  if (!CanWrite()) Raise<RuntimeException>();
  RuntimeGenericSetter(mSetInvoker, mSetterValue, object.get(), mOffsetParamValue, value);
}

}  // namespace veldrin::Introspection
