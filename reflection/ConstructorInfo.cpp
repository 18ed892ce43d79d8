#include "reflection/ConstructorInfo.h"

#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void ConstructorInfo::fillTable(ClassTable<ConstructorInfo>& table) {
  table.method<&ConstructorInfo::Invoke>("Invoke"_s);
}

Ref<Object> ConstructorInfo::Invoke(const Ref<Array<Variant>>& arguments) const {
  // A new window stands among the open ones at once, so what can be told ahead is told ahead.
  if (arguments->elements.size() != mParamList.size()) Raise<OutOfBoundsException>();
  const Ref<Array<Variant>> values(arguments.get());
  Ref<Object> made = RuntimeNewObject(mOwnerClassRef);
  if (mInvoker != nullptr) mInvoker(mVector, made.get(), &values->elements);
  return made;
}

}  // namespace veldrin::Introspection
