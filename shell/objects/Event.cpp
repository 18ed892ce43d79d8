#include "shell/objects/Event.h"

#include <cstddef>

#include "shell/objects/Failure.h"

namespace veldrin {

std::size_t RequireEvent(const ClassRecord& record, const String& name, const String& signature) {
  const std::int32_t index = FindEvent(record, name);
  if (index < 0) Raise<KeyNotFoundException>();
  const auto place = static_cast<std::size_t>(index);
  if (!(record.eventRows[place].signature == signature)) Raise<TypeMismatchException>();
  return place;
}

Function detail::handlerOf(const Object& object, const String& name, const String& signature,
                           std::span<const Function> own) {
  const ClassRecord* const record = object.classRecord();
  if (record == nullptr) Raise<KeyNotFoundException>();
  const std::size_t place = RequireEvent(*record, name, signature);
  if (place < own.size() && own[place] != nullptr) return own[place];
  return record->eventRows[place].handler;
}

}  // namespace veldrin
