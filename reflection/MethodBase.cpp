#include "reflection/MethodBase.h"

#include <string_view>

#include "reflection/NewInfo.h"
#include "shell/objects/TypeCodeGrammar.h"

namespace veldrin::Introspection {

void MethodBase::fillTable(ClassTable<MethodBase>& table) {
  table.overriding<&MethodBase::Constructor>("Constructor"_s, PublicHidden);
  table.method<&MethodBase::GetParameters>("GetParameters"_s);
  table.method<&MethodBase::ParseParameterList>("ParseParameterList"_s);
  table.readOnlyField<&MethodBase::mInvoker>("mInvoker"_s, Private);
  table.property<&MethodBase::mParamList>("mParamList"_s, Private);
  table.property<&MethodBase::mReturnTypeCode>("mReturnTypeCode"_s, Private);
  table.property<&MethodBase::mReturnTypeValue>("mReturnTypeValue"_s, Private);
  table.property<&MethodBase::mSignature>("mSignature"_s, Private);
  table.readOnlyField<&MethodBase::mVector>("mVector"_s, Private);
}

void MethodBase::Constructor(const MemberRow* row, ClassRecord* owner) {
  MemberInfo::Constructor(row, owner);
  if (row == nullptr) return;
  const auto& methodRow = static_cast<const MethodRow&>(*row);
  mSignature = methodRow.signature;
  if (const auto parts = splitSignature(mSignature.view())) {
    mReturnTypeCode = String(parts->result);
    ParseParameterList(String(parts->parameters));
  }
  mVector = methodRow.function;
  mInvoker = methodRow.invoker;
}

Ref<Array<Ref<ParameterInfo>>> MethodBase::GetParameters() const {
  return copyOf(mParamList);
}

void MethodBase::ParseParameterList(const String& text) {
  mParamList = nullptr;
  std::string_view rest = text.view();
  while (!rest.empty()) {
    append(mParamList, NewInfo<ParameterInfoImp>(String(takeParameter(rest))));
  }
}

}  // namespace veldrin::Introspection
