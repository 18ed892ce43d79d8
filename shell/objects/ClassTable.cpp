#include "shell/objects/ClassTable.h"

#include <algorithm>
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

Function& detail::slotOf(ClassRecord& record, const String& name, const String& signature) {
  // From the derived to the base: the last class that has overridden it has the function that
  // stands in the table now.
  for (auto row = record.methodRows.rbegin(); row != record.methodRows.rend(); ++row) {
    if (!(row->name == name && row->signature == signature)) continue;
    const auto slot = std::ranges::find(record.virtualTable, row->function);
    if (slot != record.virtualTable.end()) return *slot;
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
