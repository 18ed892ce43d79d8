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
  table.method<Get>("Value"_s);
  table.slot<Set>();
  table.plainMethod<Set>("=Value"_s, Public, Flags::Assigns);

  table.readOnlyProperty<&PropertyInfo::CanRead>("CanRead"_s);
  table.readOnlyProperty<&PropertyInfo::CanWrite>("CanWrite"_s);
  table.readOnlyProperty<&PropertyInfo::IsShared>("IsShared"_s);
  table.readOnlyProperty<&PropertyInfo::PropertyType>("PropertyType"_s);
}

void PropertyInfo::Constructor(const PropertyRow* row, ClassRecord* owner) {
  MemberInfo::Constructor(row, owner);
  if (row == nullptr) return;
  mTypeValue = GetInfoFromTypeCode(row->type);
  mGetterValue = row->getter;
  mSetterValue = row->setter;
  mGetInvoker = row->reflectionGet;
  mSetInvoker = row->reflectionSet;
  mOffsetParamValue = row->fieldOffset;
}

void PropertyInfo::FilterAttributes() {
  if (takeOut("__Shared")) mIsShared = true;
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
