#include "shell/objects/Event.h"

#include <cstddef>
#include <optional>

#include "shell/objects/Failure.h"

namespace veldrin {

std::size_t RequireEvent(const ClassRecord& record, const String& name, const String& signature) {
  const std::optional<std::size_t> index = FindEvent(record, name);
  if (!index) Raise<KeyNotFoundException>();
  if (!(record.eventRows[*index].signature == signature)) Raise<TypeMismatchException>();
  return *index;
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
