#include "shell/objects/ClassTable.h"

#include <string>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

[[noreturn]] void fault(const ClassRecord& record, const char* what, const String& name,
                        const String& signature) {
  throw FatalFault("The table of " + std::string(record.name.view()) + " has no " + what + " " +
                   std::string(name.view()) + " of the signature " + std::string(signature.view()) +
                   ".");
}

}  // namespace

MethodRow detail::rowOf(const ClassRecord& record, const String& name, const String& signature) {
  for (auto row = record.methodRows.rbegin(); row != record.methodRows.rend(); ++row) {
    if (row->slot >= 0 && row->name == name && row->signature == signature) return *row;
  }
  fault(record, "operation", name, signature);
}

EventRow& detail::eventRowOf(ClassRecord& record, const String& name, const String& signature) {
  const std::int32_t index = FindEvent(record, name);
  if (index < 0) fault(record, "event", name, signature);
  EventRow& row = record.eventRows[static_cast<std::size_t>(index)];
  if (!(row.signature == signature)) fault(record, "event", name, signature);
  return row;
}

}  // namespace veldrin
