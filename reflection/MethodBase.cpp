#include "reflection/MethodBase.h"

#include "reflection/NewInfo.h"
#include "shell/objects/NewArray.h"
#include "shell/objects/TypeCodeGrammar.h"

namespace veldrin::Introspection {

void MethodBase::fillTable(ClassTable<MethodBase>& table) {
  table.method<&MethodBase::GetParameters>("GetParameters"_s);
  table.method<&MethodBase::ParseParameterList>("ParseParameterList"_s);
}

void MethodBase::Constructor(const MethodRow* row, ClassRecord* owner) {
  MemberInfo::Constructor(row, owner);
  if (row == nullptr) return;
  mSignature = row->signature;
  if (const auto parts = splitSignature(mSignature.view())) {
    mReturnTypeCode = String(parts->result);
    ParseParameterList(String(parts->parameters));
  }
  mVector = row->function;
  mInvoker = row->invoker;
}

Ref<Array<Ref<ParameterInfo>>> MethodBase::GetParameters() const {
  return newArray(mParamList);
}

void MethodBase::ParseParameterList(const String& text) {
  mParamList.clear();
  std::string_view rest = text.view();
  while (!rest.empty()) {
    mParamList.emplace_back(NewInfo<ParameterInfoImp>(String(takeParameter(rest))));
  }
}

}  // namespace veldrin::Introspection
