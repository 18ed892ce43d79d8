#include "reflection/ConstructorInfo.h"

#include "shell/objects/Failure.h"

namespace veldrin::Introspection {

void ConstructorInfo::fillTable(ClassTable<ConstructorInfo>& table) {
  table.method<&ConstructorInfo::Invoke>("Invoke"_s);
}

Ref<Object> ConstructorInfo::Invoke(const Ref<Array<Variant>>& arguments) const {
  // Making a window enters it among the open ones, so the count is checked first.
  if (arguments->elements.size() != itemsOf(mParamList).size()) Raise<OutOfBoundsException>();
  const Ref<Array<Variant>> values(arguments.get());
  Ref<Object> made = RuntimeNewObject(mOwnerClassRef);
  if (mInvoker != nullptr) mInvoker(mVector, made.get(), &values->elements);
  return made;
}

}  // namespace veldrin::Introspection
