#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "shell/objects/Object.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"
#include "shell/objects/Variant.h"

namespace veldrin {

/// A function pointer without its type; the caller knows the real type from the signature.
using Function = void (*)();

/// A step in the life of an object: `__Init`, `Destructor` or `__Exit`.
using LifeStep = void (*)(Object& object);

/// A thunk that calls functions of one signature: it takes the arguments from the array in order,
/// converts each, calls, and puts by-reference results back into the array. Everything is checked
/// before the call. Raises `NilObjectException` for a nil object or array, `OutOfBoundsException`
/// for a wrong number of arguments, and what `fromVariant` raises.
using Invoker = Variant (*)(Function function, Object* object, VariantArray* arguments);

/// An attribute of a class or a member: "__Scope", "Hidden", "__Shared" or "Deprecated".
struct AttributeRow {
  StringConstant name;   ///< one of those above
  StringConstant value;  ///< the empty constant where there is none
  bool hasValue;         ///< told apart from one with the empty text
};

/// The bits of a row's `flags`.
namespace Flags {
inline constexpr std::uint32_t Public = 1;
inline constexpr std::uint32_t Shared = 2;  ///< of the class, and of no object
/// Of a method: its last parameter stands behind an equals sign. Of a property: writable.
inline constexpr std::uint32_t Assigns = 4;
inline constexpr std::uint32_t Writable = 4;
/// Of a method: a list of arguments of any length.
inline constexpr std::uint32_t VariableArguments = 8;
}  // namespace Flags

/// What the rows of methods and of properties begin with.
struct MemberRow {
  String name;
  std::uint32_t flags = 0;
  std::span<const AttributeRow> attributes;
};

/// One method of a class, under which it is listed and by which it is invoked.
struct MethodRow : MemberRow {
  String signature;  ///< without the object itself
  /// Takes the object as its first argument, unless shared: a `Call` of `MethodShape`.
  Function function = nullptr;
  Invoker invoker = nullptr;
  std::int32_t slot = -1;  ///< its place in the virtual table, -1 for none
};

/// One property of a class, with the accessors that decoding and reflection reach its value by.
struct PropertyRow : MemberRow {
  /// By type: calls the getter and makes a variant of its result, or the other way round.
  using Get = Variant (*)(Function getter, Object* object, std::int32_t offset);
  using Set = void (*)(Function setter, Object* object, std::int32_t offset, const Variant& value);

  String type;  ///< one type code
  /// Where a stored value lies in the instance; 0, which no field has, for a computed or a shared
  /// one.
  std::int32_t fieldOffset = 0;
  Function getter = nullptr;  ///< nil for a property that cannot be read
  Function setter = nullptr;  ///< nil for a read-only one
  Get reflectionGet = nullptr;
  Set reflectionSet = nullptr;
};

/// An event that a class or a parent declares. A subclass has its parent's rows in the same places
/// and its own behind them, so the index of an event never changes down a class tree.
struct EventRow {
  String name;
  String signature;            ///< of its handlers, without the object
  Function handler = nullptr;  ///< what the class binds, or nil
};

/// How a class does what an interface asks for.
struct InterfaceRow {
  ClassRecord* interface = nullptr;
  std::vector<Function> operations;  ///< in the interface's order
};

/// The record of one class: how its objects are made and ended, and what members it has. Of the
/// methods, events and properties the inherited rows come first. A record is built on first need,
/// lives for the whole run and never moves.
struct ClassRecord {
  ClassRecord* nextClass = nullptr;  ///< link of the list that `RuntimeGetClassList` starts
  ClassRecord* baseClass = nullptr;  ///< nil for a class that derives from `Object` alone
  String name;                       ///< full, with dots: "Veldrin.Veldrin"
  std::int32_t instanceSize = 0;     ///< bytes, inherited fields included; 0 for an interface
  bool isInterface = false;
  LifeStep __Init = nullptr;      ///< runs on a new instance before any constructor
  LifeStep Destructor = nullptr;  ///< the class's declared destructor
  LifeStep __Exit = nullptr;      ///< releases what the instance holds
  std::vector<Function> virtualTable;
  std::vector<MethodRow> methodRows;
  std::vector<EventRow> eventRows;
  std::vector<PropertyRow> propertyRows;
  std::span<const AttributeRow> attributeRows;
  std::vector<InterfaceRow> interfaceRows;
  Object* (*allocate)() = nullptr;  ///< a bare instance with one count; nil where none can be made

  /// The rows that the class itself has added.
  [[nodiscard]] std::span<const MethodRow> ownMethods() const;
  [[nodiscard]] std::span<const PropertyRow> ownProperties() const;
};

/// Allocates a record and links it into the list of classes. `base` is nil for a class that derives
/// from `Object` alone; its rows and its virtual table are carried over.
ClassRecord* RuntimeNewClass(ClassRecord* base);

/// Takes a record out of the list again: its class could not be built. Its memory stays.
void RuntimeDropClass(const ClassRecord* record) noexcept;

/// The class that was built last; the others follow by `nextClass`. Nil before the first.
ClassRecord* RuntimeGetClassList();

/// The class of an object; nil for nil and for an object of the root.
inline ClassRecord* RuntimeClassOf(const Object* object) {
  return object == nullptr ? nullptr : object->classRecord();
}

/// A new instance, on which the `__Init` functions have run from the base to the derived, with one
/// count for the caller. Raises `NilObjectException` for nil, and `UnsupportedFormatException` for
/// a class of which no instance can be made.
Ref<Object> RuntimeNewObject(ClassRecord* record);

/// Whether the object is an instance of the class or of a subclass; false for nil. The nil record
/// is the root, of which every object is an instance.
bool RuntimeObjectIsa(const Object* object, const ClassRecord* record);

/// The object with a fresh count for the caller. Raises `IllegalCastException` where it is no
/// instance of the class; nil passes every cast.
Ref<Object> RuntimeCheckCast(Object* object, const ClassRecord* record);

/// The row by which the object's class, or an ancestor, implements the interface; nil for none.
const InterfaceRow* RuntimeLookupInterfaceVtable(const Object* object,
                                                 const ClassRecord* interface);

/// `RuntimeCheckCast` to the class `T`, typed as that class.
template <class T>
Ref<T> CheckCast(const Ref<Object>& object) {
  return Ref<T>::adopt(static_cast<T*>(RuntimeCheckCast(object.get(), T::__Lookup()).release()));
}

/// The same for a reference that is given up, whose count goes on to the result.
template <class T>
Ref<T> CheckCast(Ref<Object>&& object) {
  const bool isOne = object && object.get()->classRecord() == T::__Lookup();
  return isOne ? Ref<T>::adopt(static_cast<T*>(object.release())) : CheckCast<T>(object);
}

/// A new object of the class `T` from its record.
template <class T>
Ref<T> New() {
  return Ref<T>::adopt(static_cast<T*>(RuntimeNewObject(T::__Lookup()).release()));
}

/// The entry of the virtual table for the operation of that name, as the class has it; nil where no
/// virtual operation has the name. Two operations may share a name, where one of them assigns: then
/// the name alone is the other one, and "=" in front of it the one that assigns.
Function FindVirtualOperation(const ClassRecord& record, const String& name);

/// The index of the event of that name in the class, or -1.
std::int32_t FindEvent(const ClassRecord& record, const String& name);

/// The property of that name in the class or an ancestor, matched without regard to case; nil for
/// none. The derived class comes first.
const PropertyRow* FindProperty(const ClassRecord& record, std::string_view name);

}  // namespace veldrin
