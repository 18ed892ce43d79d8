#include "shell/objects/Variant.h"

#include <functional>
#include <string_view>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/Failure.h"

namespace veldrin {

std::size_t VariantHash::operator()(const Variant& value) const {
  return std::visit(
      [](const auto& held) -> std::size_t {
        using Held = std::remove_cvref_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, String>) {
          return std::hash<std::string_view>()(held.view());
        } else if constexpr (std::is_same_v<Held, Ref<Object>>) {
          return std::hash<const Object*>()(held.get());
        } else if constexpr (std::is_same_v<Held, Currency>) {
          return std::hash<std::int64_t>()(held.tenThousandths);
        } else if constexpr (std::is_same_v<Held, Color>) {
          return std::hash<int>()(held.red << 16 | held.green << 8 | held.blue);
        } else {
          return std::hash<Held>()(held);
        }
      },
      value.storage());
}

void detail::raiseTypeMismatch() {
  Raise<TypeMismatchException>();
}

Ref<Object> detail::castVariant(const Variant& value, ClassRecord* record) {
  if (!value.isNil() && value.object() == nullptr) raiseTypeMismatch();
  return RuntimeCheckCast(value.object(), record);
}

}  // namespace veldrin
