#include "shell/objects/PropertyAccess.h"

#include "shell/objects/Failure.h"

namespace veldrin {

Variant RuntimeGenericGetter(PropertyRow::Get reflectionGet, Function getter, Object* object,
                             std::int32_t offset) {
  if (object == nullptr) RaiseNilObjectException();
  return reflectionGet(getter, object, offset);
}

void RuntimeGenericSetter(PropertyRow::Set reflectionSet, Function setter, Object* object,
                          std::int32_t offset, const Variant& value) {
  if (object == nullptr) RaiseNilObjectException();
  reflectionSet(setter, object, offset, value);
}

}  // namespace veldrin
