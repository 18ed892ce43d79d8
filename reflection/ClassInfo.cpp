#include "reflection/ClassInfo.h"

#include <utility>
#include <vector>

#include "reflection/ConstructorInfo.h"
#include "reflection/Introspection.h"
#include "reflection/Journal.h"
#include "reflection/MethodInfo.h"
#include "reflection/NewInfo.h"
#include "reflection/PropertyInfo.h"
#include "reflection/Registry.h"
#include "shell/objects/Failure.h"

namespace veldrin::Introspection {
namespace {

/// A class record as a key or value of a `Dictionary`.
Variant pointerTo(ClassRecord* record) {
  return static_cast<void*>(record);
}

/// Whether the record is in the list of classes. True for nil, which means the root.
bool isClass(const ClassRecord* record) {
  const ClassRecord* each = RuntimeGetClassList();
  while (each != nullptr && each != record) each = each->nextClass;
  return each == record;
}

Ref<Dictionary> makeNameMap() {
  Ref<Dictionary> map = New<Dictionary>();
  for (ClassRecord* record = RuntimeGetClassList(); record != nullptr; record = record->nextClass) {
    map->Value(record->name, pointerTo(record));
  }
  return map;
}

}  // namespace

void ClassInfo::fillTable(ClassTable<ClassInfo>& table) {
  table.overriding<&ClassInfo::IsSubclassOf>("IsSubclassOf"_s);
  using OfRecord = void (ClassInfo::*)(ClassRecord*);
  using ByRecord = Ref<ClassInfo> (*)(ClassRecord*);
  using ByName = Ref<ClassInfo> (*)(const String&);
  table.plainMethod<static_cast<OfRecord>(&ClassInfo::Constructor)>("Constructor"_s, PublicHidden);
  table.sharedMethod<static_cast<ByRecord>(&ClassInfo::Lookup)>("Lookup"_s);
  table.sharedMethod<static_cast<ByName>(&ClassInfo::Lookup)>("Lookup"_s);
  table.readOnlyField<&ClassInfo::mClassRef>("mClassRef"_s, Private);
  table.sharedProperty<&Registry::sClassFQNToRefMap>("sClassFQNToRefMap"_s, Private);
  table.sharedProperty<&Registry::sClassRefMap>("sClassRefMap"_s, Private);
}

ClassInfo::ClassInfo() : older_(std::exchange(Registry::newest, this)) {
  if (older_ != nullptr) older_->newer_ = this;
}

ClassInfo::~ClassInfo() {
  (newer_ == nullptr ? Registry::newest : newer_->older_) = older_;
  if (older_ != nullptr) older_->newer_ = newer_;
}

Ref<ClassInfo> ClassInfo::Lookup(ClassRecord* record) {
  if (!Registry::sClassRefMap) Registry::sClassRefMap = New<Dictionary>();
  if (Registry::sClassRefMap->HasKey(pointerTo(record))) {
    return fromVariant<Ref<ClassInfo>>(Registry::sClassRefMap->Value(pointerTo(record)));
  }
  if (!isClass(record)) Raise<TypeMismatchException>();
  Ref<ClassInfo> info = NewInfo<ClassInfo>(record);
  if (!info->CanAccess()) info = nullptr;
  Journal::setValue(Registry::sClassRefMap, pointerTo(record), info);
  return info;
}

Ref<ClassInfo> ClassInfo::Lookup(const String& fullName) {
  if (!Registry::sClassFQNToRefMap) Registry::sClassFQNToRefMap = makeNameMap();
  const Variant record = Registry::sClassFQNToRefMap->Lookup(fullName, pointerTo(nullptr));
  return Lookup(static_cast<ClassRecord*>(fromVariant<void*>(record)));
}

void ClassInfo::finalizeClassFQNToRefMap() {
  Registry::sClassFQNToRefMap = nullptr;
}

void ClassInfo::finalizeClassRefMap() {
  breakCycles();
  Registry::sClassRefMap = nullptr;
}

void ClassInfo::breakCycles() {
  std::vector<Ref<ClassInfo>> all;
  for (ClassInfo* info = Registry::newest; info != nullptr; info = info->older_)
    all.emplace_back(info);
  for (const Ref<ClassInfo>& info : all) info->__Exit();
}

void ClassInfo::Constructor(ClassRecord* record) {
  RuntimeStackCheck();
  Journal journal;
  describe(record);
  journal.commit();
}

void ClassInfo::describe(ClassRecord* record) {
  mClassRef = record;
  if (record == nullptr) {
    mNameValue = "Object"_s;
    return;
  }
  TypeInfo::Constructor(record->name);
  // Register before adding members, because a member's type may be this class.
  Journal::setValue(GetFQNTypeInfoMap(), mFullyQualifiedName, Ref<ClassInfo>(this));
  mIsInterfaceTypeValue = record->isInterface;
  mIsClassTypeValue = !record->isInterface;
  addMembers();
  if (record->baseClass != nullptr) {
    const Ref<ClassInfo> base = NewInfo<ClassInfo>(record->baseClass);
    if (base->CanAccess()) mBasetype = base;
  }
  setAttributes(record->attributeRows);
}

void ClassInfo::addMembers() {
  for (const PropertyRow& row : mClassRef->propertyRows) {
    const Ref<PropertyInfo> property = NewInfo<PropertyInfoImp>(&row, mClassRef);
    if (property->CanAccess()) append(mPropertyList, property);
  }
  mMethodList = nullptr;
  mConstructorList = nullptr;
  for (const MethodRow& row : mClassRef->methodRows) addMethod(row);
  if (mIsClassTypeValue && !mConstructorList) {
    append(mConstructorList, NewInfo<ConstructorInfoImp>(nullptr, mClassRef));
  }
}

void ClassInfo::addMethod(const MethodRow& row) {
  if (row.name == "Constructor") {
    const Ref<ConstructorInfo> constructor = NewInfo<ConstructorInfoImp>(&row, mClassRef);
    if (constructor->CanAccess()) append(mConstructorList, constructor);
  } else {
    const Ref<MethodInfo> method = NewInfo<MethodInfoImp>(&row, mClassRef);
    if (method->CanAccess()) append(mMethodList, method);
  }
}

bool ClassInfo::IsSubclassOf(const Ref<TypeInfo>& other) const {
  if (!RuntimeObjectIsa(other.get(), ClassInfo::__Lookup())) return false;
  const ClassRecord* const wanted = static_cast<const ClassInfo&>(*other).mClassRef;
  const ClassRecord* own = mClassRef;
  while (own != nullptr && own != wanted) own = own->baseClass;
  return own == wanted;
}

}  // namespace veldrin::Introspection
