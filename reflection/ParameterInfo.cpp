#include "reflection/ParameterInfo.h"

#include "reflection/Introspection.h"

namespace veldrin::Introspection {

void ParameterInfo::fillTable(ClassTable<ParameterInfo>& table) {
  table.plainMethod<&ParameterInfo::Constructor>("Constructor"_s);
  table.readOnlyProperty<&ParameterInfo::IsByRef>("IsByRef"_s);
  table.readOnlyProperty<&ParameterInfo::ParameterType>("ParameterType"_s);
  table.property<&ParameterInfo::mByRefValue>("mByRefValue"_s, Private);
  table.property<&ParameterInfo::mParamTypeCode>("mParamTypeCode"_s, Private);
  table.property<&ParameterInfo::mParamTypeValue>("mParamTypeValue"_s, Private);
}

void ParameterInfo::Constructor(const String& code) {
  mByRefValue = code.view().starts_with('&');
  mParamTypeCode = mByRefValue ? String(code.view().substr(1)) : code;
}

Ref<TypeInfo> ParameterInfo::ParameterType() const {
  if (!mParamTypeValue) mParamTypeValue = GetInfoFromTypeCode(mParamTypeCode);
  return mParamTypeValue;
}

}  // namespace veldrin::Introspection
