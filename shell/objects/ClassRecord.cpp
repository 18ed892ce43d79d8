#include "shell/objects/ClassRecord.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <iterator>
#include <memory>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {
namespace {

/// All records. A deque, so that records never move. Never destroyed, because objects may be
/// released after static destructors have run.
std::deque<ClassRecord>& records() {
  static std::deque<ClassRecord>& all = *std::make_unique<std::deque<ClassRecord>>().release();
  return all;
}

/// Head of the list of classes.
constinit ClassRecord* newest = nullptr;

/// Lower case for ASCII letters only, independent of the locale.
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
  ClassRecord& record = records().emplace_back();
  record.baseClass = base;
  if (base != nullptr) {
    record.virtualTable = base->virtualTable;
    record.methodRows = base->methodRows;
    record.eventRows = base->eventRows;
    record.propertyRows = base->propertyRows;
  }
  record.nextClass = std::exchange(newest, &record);
  return &record;
}

void RuntimeDropClass(const ClassRecord* record) noexcept {
  for (ClassRecord** link = &newest; *link != nullptr; link = &(*link)->nextClass) {
    if (*link != record) continue;
    *link = record->nextClass;
    return;
  }
}

ClassRecord* RuntimeGetClassList() {
  return newest;
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
  const ClassRecord* current = object->classRecord();
  while (current != nullptr && current != record) current = current->baseClass;
  return current == record;
}

Ref<Object> RuntimeCheckCast(Object* object, const ClassRecord* record) {
  const bool isAllowed =
      object == nullptr || object->classRecord() == record || RuntimeObjectIsa(object, record);
  if (!isAllowed) Raise<IllegalCastException>();
  return Ref<Object>(object);
}

const InterfaceRow* RuntimeLookupInterfaceVtable(const Object* object,
                                                 const ClassRecord* interface) {
  for (const ClassRecord* current = RuntimeClassOf(object); current != nullptr;
       current = current->baseClass) {
    const auto row = std::ranges::find(current->interfaceRows, interface, &InterfaceRow::interface);
    if (row != current->interfaceRows.end()) return &*row;
  }
  return nullptr;
}

Function FindVirtualOperation(const ClassRecord& record, const String& name) {
  const bool isAssigning = name.view().starts_with('=');
  const std::string_view plainName = name.view().substr(isAssigning ? 1 : 0);
  const auto matches = [&](const MethodRow& row) {
    return row.name == plainName && ((row.flags & Flags::Assigns) != 0) == isAssigning &&
           row.slot >= 0;
  };
  const auto row = std::find_if(record.methodRows.rbegin(), record.methodRows.rend(), matches);
  if (row == record.methodRows.rend()) return nullptr;
  return record.virtualTable[static_cast<std::size_t>(row->slot)];
}

std::optional<std::size_t> FindEvent(const ClassRecord& record, const String& name) {
  const auto row = std::ranges::find(record.eventRows, name, &EventRow::name);
  if (row == record.eventRows.end()) return std::nullopt;
  return static_cast<std::size_t>(row - record.eventRows.begin());
}

const PropertyRow* FindProperty(const ClassRecord& record, std::string_view name) {
  const auto matches = [name](const PropertyRow& candidate) {
    const std::string_view other = candidate.name.view();
    return other.size() == name.size() &&
           (other == name || std::ranges::equal(other, name, {}, lowered, lowered));
  };
  const auto row = std::find_if(record.propertyRows.rbegin(), record.propertyRows.rend(), matches);
  return row == record.propertyRows.rend() ? nullptr : &*row;
}

}  // namespace veldrin
