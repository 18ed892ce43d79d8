#include "reflection/MethodInfo.h"

#include "reflection/Introspection.h"
#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void MethodInfo::fillTable(ClassTable<MethodInfo>& table) {
  table.overriding<&MethodInfo::FilterAttributes>("FilterAttributes"_s);
  table.method<&MethodInfo::Invoke>("Invoke"_s);
  table.method<&MethodInfo::InvokeForResult>("Invoke"_s);

  table.readOnlyProperty<&MethodInfo::IsShared>("IsShared"_s);
  table.readOnlyProperty<&MethodInfo::ReturnType>("ReturnType"_s);
  table.readOnlyField<&MethodInfo::mIsShared>("mIsShared"_s, Private);
}

void MethodInfo::FilterAttributes() {
  if (removeAttribute("__Shared")) mIsShared = true;
  MethodBase::FilterAttributes();
}

void MethodInfo::Invoke(const Ref<Object>& object, const Ref<Array<Variant>>& arguments) const {
  static_cast<void>(InvokeForResult(object, arguments));
}

Variant MethodInfo::InvokeForResult(const Ref<Object>& object,
                                    const Ref<Array<Variant>>& arguments) const {
  if (mInvoker == nullptr) Raise<FunctionNotFoundException>();
  if (!mIsShared) requireInstance(object);
  // Keep both alive: the method may release the caller's references.
  const Ref<Object> receiver(object.get());
  const Ref<Array<Variant>> values(arguments.get());
  return mInvoker(mVector, receiver.get(), values ? &values->elements : nullptr);
}

Ref<TypeInfo> MethodInfo::ReturnType() const {
  if (!mReturnTypeValue && !mReturnTypeCode.isEmpty()) {
    mReturnTypeValue = GetInfoFromTypeCode(mReturnTypeCode);
  }
  return mReturnTypeValue;
}

}  // namespace veldrin::Introspection
