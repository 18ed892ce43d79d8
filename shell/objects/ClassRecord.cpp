#include "shell/objects/ClassRecord.h"

#include <algorithm>
#include <deque>
#include <memory>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

/// All records there are: a deque, because a record never moves, and one that is never taken down,
/// because the last object of the program may go after it.
std::deque<ClassRecord>& records() {
  static std::deque<ClassRecord>& all = *std::make_unique<std::deque<ClassRecord>>().release();
  return all;
}

/// An ASCII letter as the small one; names are ASCII, and the C locale has no say in them.
char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

void initialize(Object& object, const ClassRecord* record) {
  if (record == nullptr) return;
  initialize(object, record->baseClass);
  if (record->__Init != nullptr) record->__Init(object);
}

}  // namespace

std::span<const MethodRow> ClassRecord::ownMethods() const {
  return std::span(methodRows).subspan(baseClass == nullptr ? 0 : baseClass->methodRows.size());
}

std::span<const PropertyRow> ClassRecord::ownProperties() const {
  return std::span(propertyRows).subspan(baseClass == nullptr ? 0 : baseClass->propertyRows.size());
}

ClassRecord* RuntimeNewClass(ClassRecord* base) {
  ClassRecord* const newest = RuntimeGetClassList();
  ClassRecord& record = records().emplace_back();
  record.nextClass = newest;
  record.baseClass = base;
  if (base != nullptr) {
    record.virtualTable = base->virtualTable;
    record.methodRows = base->methodRows;
    record.eventRows = base->eventRows;
    record.propertyRows = base->propertyRows;
  }
  return &record;
}

ClassRecord* RuntimeGetClassList() {
  return records().empty() ? nullptr : &records().back();
}

Ref<Object> RuntimeNewObject(ClassRecord* record) {
  if (record == nullptr) RaiseNilObjectException();
  if (record->allocate == nullptr) Raise<UnsupportedFormatException>();
  auto object = Ref<Object>::adopt(record->allocate());
  initialize(*object, record);
  return object;
}

bool RuntimeObjectIsa(const Object* object, const ClassRecord* record) {
  if (object == nullptr) return false;
  const ClassRecord* own = object->classRecord();
  while (own != nullptr && own != record) own = own->baseClass;
  return own == record;
}

Ref<Object> RuntimeCheckCast(Object* object, const ClassRecord* record) {
  const bool fits =
      object == nullptr || object->classRecord() == record || RuntimeObjectIsa(object, record);
  if (!fits) Raise<IllegalCastException>();
  return Ref<Object>(object);
}

const InterfaceRow* RuntimeLookupInterfaceVtable(const Object* object,
                                                 const ClassRecord* interface) {
  for (const ClassRecord* own = RuntimeClassOf(object); own != nullptr; own = own->baseClass) {
    const auto row = std::ranges::find(own->interfaceRows, interface, &InterfaceRow::interface);
    if (row != own->interfaceRows.end()) return &*row;
  }
  return nullptr;
}

Function FindVirtualOperation(const ClassRecord& record, const String& name) {
  const auto isIt = [&](const MethodRow& row) {
    return row.name == name && std::ranges::count(record.virtualTable, row.function) != 0;
  };
  // From the derived to the base: a row that has been overridden is not in the table any more.
  const auto row = std::find_if(record.methodRows.rbegin(), record.methodRows.rend(), isIt);
  return row == record.methodRows.rend() ? nullptr : row->function;
}

std::int32_t FindEvent(const ClassRecord& record, const String& name) {
  const auto row = std::ranges::find(record.eventRows, name, &EventRow::name);
  return row == record.eventRows.end()
             ? -1
             : static_cast<std::int32_t>(std::distance(record.eventRows.begin(), row));
}

const PropertyRow* FindProperty(const ClassRecord& record, std::string_view name) {
  const auto row = std::ranges::find_if(record.propertyRows, [name](const PropertyRow& candidate) {
    const std::string_view own = candidate.name.view();
    return own.size() == name.size() &&
           (own == name || std::ranges::equal(own, name, {}, lowered, lowered));
  });
  return row == record.propertyRows.end() ? nullptr : &*row;
}

}  // namespace veldrin
