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

MethodRow detail::rowOf(const ClassRecord& record, const String& name, const String& signature) {
  const auto isIt = [&](const MethodRow& row) {
    return row.slot >= 0 && row.name == name && row.signature == signature;
  };
  const auto row = std::find_if(record.methodRows.rbegin(), record.methodRows.rend(), isIt);
  if (row == record.methodRows.rend()) fault(record, "operation", name, signature);
  return *row;
}

EventRow& detail::eventRowOf(ClassRecord& record, const String& name, const String& signature) {
  const auto isIt = [&](const EventRow& row) {
    return row.name == name && row.signature == signature;
  };
  const auto row = std::find_if(record.eventRows.rbegin(), record.eventRows.rend(), isIt);
  if (row == record.eventRows.rend()) fault(record, "event", name, signature);
  return *row;
}

}  // namespace veldrin
