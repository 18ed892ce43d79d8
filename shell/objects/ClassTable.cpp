#include "shell/objects/ClassTable.h"

#include <algorithm>
#include <string>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

[[noreturn]] void throwMissing(const ClassRecord& record, const char* kind, const String& name,
                               const String& signature) {
  throw FatalFault("The table of " + std::string(record.name.view()) + " has no " + kind + " " +
                   std::string(name.view()) + " of the signature " + std::string(signature.view()) +
                   ".");
}

}  // namespace

MethodRow detail::rowOf(const ClassRecord& record, const String& name, const String& signature) {
  const auto matches = [&](const MethodRow& row) {
    return row.slot >= 0 && row.name == name && row.signature == signature;
  };
  const auto row = std::find_if(record.methodRows.rbegin(), record.methodRows.rend(), matches);
  if (row == record.methodRows.rend()) throwMissing(record, "operation", name, signature);
  return *row;
}

EventRow& detail::eventRowOf(ClassRecord& record, const String& name, const String& signature) {
  const auto matches = [&](const EventRow& row) {
    return row.name == name && row.signature == signature;
  };
  const auto row = std::find_if(record.eventRows.rbegin(), record.eventRows.rend(), matches);
  if (row == record.eventRows.rend()) throwMissing(record, "event", name, signature);
  return *row;
}

}  // namespace veldrin
