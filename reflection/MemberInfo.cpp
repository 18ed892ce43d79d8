#include "reflection/MemberInfo.h"

#include "reflection/NewInfo.h"
#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void MemberInfo::fillTable(ClassTable<MemberInfo>& table) {
  table.method<&MemberInfo::CanAccess>("CanAccess"_s);
  table.method<&MemberInfo::Constructor>("Constructor"_s, PublicHidden);
  table.method<&MemberInfo::FilterAttributes>("FilterAttributes"_s);
  table.method<&MemberInfo::GetAttributes>("GetAttributes"_s);

  table.property<&MemberInfo::mNameValue>("Name"_s);
  table.readOnlyProperty<&MemberInfo::IsGlobal>("IsGlobal"_s);
  table.readOnlyProperty<&MemberInfo::IsPrivate>("IsPrivate"_s);
  table.readOnlyProperty<&MemberInfo::IsProtected>("IsProtected"_s);
  table.readOnlyProperty<&MemberInfo::IsPublic>("IsPublic"_s);
  table.property<&MemberInfo::mAttributeData>("mAttributeData"_s, Private);
  table.property<&MemberInfo::mAttributes>("mAttributes"_s, Private);
  table.property<&MemberInfo::mNameValue>("mNameValue"_s, Private);
  table.readOnlyField<&MemberInfo::mOwnerClassRef>("mOwnerClassRef"_s, Private);
  table.property<&MemberInfo::mScopeData>("mScopeData"_s, Private);
}

void MemberInfo::Constructor(const MemberRow* row, ClassRecord* owner) {
  mOwnerClassRef = owner;
  if (row == nullptr) return;
  mNameValue = row->name;
  mAttributes = static_cast<std::int32_t>(row->flags);
  setAttributes(row->attributes);
}

void MemberInfo::setAttributes(std::span<const AttributeRow> rows) {
  mAttributeData = nullptr;
  for (const AttributeRow& row : rows) append(mAttributeData, NewInfo<AttributeInfoImp>(&row));
  if (mAttributeData) FilterAttributes();
}

bool MemberInfo::removeAttribute(std::string_view name, Variant* value) {
  bool isFound = false;
  for (auto index = itemsOf(mAttributeData).size(); index-- > 0;) {
    std::vector<Ref<AttributeInfo>>& attributes = mAttributeData->elements;
    const Ref<AttributeInfo> attribute = attributes[index];
    if (!(attribute->Name == name)) continue;
    isFound = true;
    if (value != nullptr) *value = attribute->Value;
    attributes.erase(attributes.begin() + static_cast<std::ptrdiff_t>(index));
  }
  return isFound;
}

void MemberInfo::FilterAttributes() {
  Variant scope;
  if (removeAttribute("__Scope", &scope)) mScopeData = fromVariant<String>(scope);
}

Ref<Array<Ref<AttributeInfo>>> MemberInfo::GetAttributes() const {
  return copyOf(mAttributeData);
}

void MemberInfo::requireInstance(const Ref<Object>& object) const {
  const bool isAccepted =
      !object || mOwnerClassRef == nullptr || RuntimeObjectIsa(object.get(), mOwnerClassRef);
  if (!isAccepted) Raise<IllegalCastException>();
}

}  // namespace veldrin::Introspection
