#include "reflection/ConstructorInfo.h"

#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void ConstructorInfo::fillTable(ClassTable<ConstructorInfo>& table) {
  table.method<&ConstructorInfo::Invoke>("Invoke"_s);
}

Ref<Object> ConstructorInfo::Invoke(const Ref<Array<Variant>>& arguments) const {
  // Check the count first: creating a window has the side effect of adding it to the open windows.
  if (arguments->elements.size() != itemsOf(mParamList).size()) Raise<OutOfBoundsException>();
  const Ref<Array<Variant>> values(arguments.get());
  Ref<Object> made = RuntimeNewObject(mOwnerClassRef);
  if (mInvoker != nullptr) mInvoker(mVector, made.get(), &values->elements);
  return made;
}

}  // namespace veldrin::Introspection
