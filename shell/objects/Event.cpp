#include "shell/objects/Event.h"

#include <cstddef>

#include "shell/objects/Failure.h"

namespace veldrin {

std::size_t RequireEvent(const ClassRecord& record, const String& name, const String& signature) {
  const std::int32_t found = FindEvent(record, name);
  if (found < 0) Raise<KeyNotFoundException>();
  const auto index = static_cast<std::size_t>(found);
  if (!(record.eventRows[index].signature == signature)) Raise<TypeMismatchException>();
  return index;
}

Function detail::handlerOf(const Object& object, const String& name, const String& signature,
                           std::span<const Function> ownHandlers) {
  const ClassRecord* const record = object.classRecord();
  if (record == nullptr) Raise<KeyNotFoundException>();
  const std::size_t index = RequireEvent(*record, name, signature);
  if (index < ownHandlers.size() && ownHandlers[index] != nullptr) return ownHandlers[index];
  return record->eventRows[index].handler;
}

}  // namespace veldrin
