#include "reflection/MemberInfo.h"

#include "reflection/NewInfo.h"
#include "shell/objects/Failure.h"
#include "shell/objects/NewArray.h"

namespace veldrin::Introspection {

void MemberInfo::fillTable(ClassTable<MemberInfo>& table) {
  table.method<&MemberInfo::CanAccess>("CanAccess"_s);
  table.slot<&MemberInfo::Constructor<MethodRow>>();
  table.method<&MemberInfo::FilterAttributes>("FilterAttributes"_s);
  table.method<&MemberInfo::GetAttributes>("GetAttributes"_s);

  table.property<&MemberInfo::mNameValue>("Name"_s);
  table.readOnlyProperty<&MemberInfo::IsGlobal>("IsGlobal"_s);
  table.readOnlyProperty<&MemberInfo::IsPrivate>("IsPrivate"_s);
  table.readOnlyProperty<&MemberInfo::IsProtected>("IsProtected"_s);
  table.readOnlyProperty<&MemberInfo::IsPublic>("IsPublic"_s);
}

void MemberInfo::describe(const String& name, std::uint32_t flags,
                          std::span<const AttributeRow> attributes) {
  mNameValue = name;
  mAttributes = static_cast<std::int32_t>(flags);
  takeAttributes(attributes);
}

void MemberInfo::takeAttributes(std::span<const AttributeRow> rows) {
  mAttributeData.clear();
  for (const AttributeRow& row : rows) mAttributeData.emplace_back(NewInfo<AttributeInfoImp>(row));
  if (!mAttributeData.empty()) FilterAttributes();
}

bool MemberInfo::takeOut(std::string_view name, Variant* value) {
  bool found = false;
  for (auto last = mAttributeData.size(); last-- > 0;) {
    const Ref<AttributeInfo> attribute = mAttributeData[last];
    if (!(attribute->Name == name)) continue;
    found = true;
    if (value != nullptr) *value = attribute->Value;
    mAttributeData.erase(mAttributeData.begin() + static_cast<std::ptrdiff_t>(last));
  }
  return found;
}

void MemberInfo::FilterAttributes() {
  Variant scope;
  if (takeOut("__Scope", &scope)) mScopeData = fromVariant<String>(scope);
}

Ref<Array<Ref<AttributeInfo>>> MemberInfo::GetAttributes() const {
  return newArray(mAttributeData);
}

void MemberInfo::requireInstance(const Ref<Object>& object) const {
  const bool fits =
      !object || mOwnerClassRef == nullptr || RuntimeObjectIsa(object.get(), mOwnerClassRef);
  if (!fits) Raise<IllegalCastException>();
}

}  // namespace veldrin::Introspection
