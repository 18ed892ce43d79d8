#include "shell/objects/Variant.h"

#include "shell/objects/ClassRecord.h"
#include "shell/objects/Failure.h"

namespace veldrin {

void detail::raiseTypeMismatch() {
  Raise<TypeMismatchException>();
}

Ref<Object> detail::castVariant(const Variant& value, ClassRecord* record) {
  if (!value.isNil() && value.object() == nullptr) raiseTypeMismatch();
  return RuntimeCheckCast(value.object(), record);
}

}  // namespace veldrin
