#include "shell/objects/PropertyAccess.h"

namespace veldrin {

Variant RuntimeGenericGetter(PropertyRow::Get reflectionGet, Function getter, Object* object,
                             std::int32_t offset) {
  return reflectionGet(getter, object, offset);
}

void RuntimeGenericSetter(PropertyRow::Set reflectionSet, Function setter, Object* object,
                          std::int32_t offset, const Variant& value) {
  reflectionSet(setter, object, offset, value);
}

}  // namespace veldrin
