#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "shell/objects/Object.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"
#include "shell/objects/Variant.h"

namespace veldrin {

/// A type-erased function pointer. The signature or type code stored with it tells the real type.
using Function = void (*)();

/// A lifecycle hook of an object: `__Init`, `Destructor` or `__Exit`.
using Hook = void (*)(Object& object);

/// A thunk for one signature. It checks and converts the arguments in order, calls the function and
/// writes by-reference arguments back into the array. Before the call, raises `NilObjectException`
/// for a nil array or, unless the method is shared, a nil object; `OutOfBoundsException` for a
/// wrong number of arguments; and the exceptions of `fromVariant`.
using Invoker = Variant (*)(Function function, Object* object, VariantArray* arguments);

/// An attribute of a class or a member: "__Scope", "Hidden", "__Shared" or "Deprecated".
struct AttributeRow {
  StringConstant name;
  StringConstant value;  ///< empty if `hasValue` is false
  bool hasValue;
};

/// The bits of a row's `flags`.
namespace Flags {
inline constexpr std::uint32_t Public = 1;
inline constexpr std::uint32_t Shared = 2;  ///< belongs to the class, not to an object
/// One bit with two meanings. `Assigns`: the last parameter of the method is the assigned value, as
/// in `x.Value(key) = value`. `Writable`: the property has a setter.
inline constexpr std::uint32_t Assigns = 4;
inline constexpr std::uint32_t Writable = 4;
/// The method takes any number of arguments, as one array.
inline constexpr std::uint32_t VariableArguments = 8;
}  // namespace Flags

/// The common part of `MethodRow` and `PropertyRow`.
struct MemberRow {
  String name;
  std::uint32_t flags = 0;
  std::span<const AttributeRow> attributes;
};

/// One method of a class.
struct MethodRow : MemberRow {
  String signature;  ///< without the object parameter
  /// A `MethodShape::Call`, or a `SharedCall` for a shared method.
  Function function = nullptr;
  Invoker invoker = nullptr;
  std::int32_t slot = -1;  ///< index in the virtual table, or -1
};

/// One property of a class, with the accessors that the form and reflection use.
struct PropertyRow : MemberRow {
  /// Thunks for one property type. They call the accessor and convert to or from `Variant`.
  using Get = Variant (*)(Function getter, Object* object, std::int32_t offset);
  using Set = void (*)(Function setter, Object* object, std::int32_t offset, const Variant& value);

  String type;  ///< a type code
  /// Offset of a stored value in the object, in bytes; 0 for a computed or shared property.
  std::int32_t fieldOffset = 0;
  Function getter = nullptr;  ///< nil if not readable
  Function setter = nullptr;  ///< nil if read-only
  Get reflectionGet = nullptr;
  Set reflectionSet = nullptr;
};

/// An event that a class or one of its bases declares. A derived class lists the rows of its base
/// first, so an event has the same index in all derived classes.
struct EventRow {
  String name;
  String signature;            ///< of its handlers, without the object parameter
  Function handler = nullptr;  ///< the handler of the class, or nil
};

/// An interface that a class implements.
struct InterfaceRow {
  ClassRecord* interface = nullptr;
  std::vector<Function> operations;  ///< in the interface's order
};

/// The run-time description of one class: how to create and destroy its objects, and its members.
/// Method, event and property rows list inherited rows first. A record is built on first use, is
/// never destroyed and never moves.
struct ClassRecord {
  ClassRecord* nextClass = nullptr;  ///< next in the list of `RuntimeGetClassList`
  ClassRecord* baseClass = nullptr;  ///< nil if the base is `Object`
  String name;                       ///< the full name, such as "Veldrin.Veldrin"
  std::int32_t instanceSize = 0;     ///< bytes, inherited fields included; 0 for an interface
  bool isInterface = false;
  Hook __Init = nullptr;  ///< runs on a new object, before a method `Constructor`
  Hook Destructor = nullptr;
  Hook __Exit = nullptr;  ///< releases the fields
  std::vector<Function> virtualTable;
  std::vector<MethodRow> methodRows;
  std::vector<EventRow> eventRows;
  std::vector<PropertyRow> propertyRows;
  std::span<const AttributeRow> attributeRows;
  std::vector<InterfaceRow> interfaceRows;
  Object* (*allocate)() = nullptr;  ///< creates an object without `__Init`; nil if abstract

  /// The rows without the inherited ones.
  [[nodiscard]] std::span<const MethodRow> ownMethods() const;
  [[nodiscard]] std::span<const PropertyRow> ownProperties() const;
};

/// Creates a record, adds it to the list of classes and copies from `base` the method, event and
/// property rows and the virtual table. For a class derived directly from `Object`, `base` is nil.
ClassRecord* RuntimeNewClass(ClassRecord* base);

/// Removes a record from the list of classes. Call if filling the record failed. Does not free it.
void RuntimeDropClass(const ClassRecord* record) noexcept;

/// The newest class; follow `nextClass` for the older ones. Nil if there is none.
ClassRecord* RuntimeGetClassList();

/// The class of an object; nil for nil and for an object without a class.
inline ClassRecord* RuntimeClassOf(const Object* object) {
  return object == nullptr ? nullptr : object->classRecord();
}

/// Creates an object and runs its `__Init` functions, base class first. Raises `NilObjectException`
/// for a nil record, `UnsupportedFormatException` for a record without `allocate`.
Ref<Object> RuntimeNewObject(ClassRecord* record);

/// Whether the object is an instance of the class or of a derived class; false for a nil object. A
/// nil record means `Object`, so it matches every object.
bool RuntimeObjectIsa(const Object* object, const ClassRecord* record);

/// Casts the object; nil casts to every class. Raises `IllegalCastException` if the object is not
/// an instance of the class.
Ref<Object> RuntimeCheckCast(Object* object, const ClassRecord* record);

/// The row of `interface` in the object's class, else in its nearest base that has it, else nil.
const InterfaceRow* RuntimeLookupInterfaceVtable(const Object* object,
                                                 const ClassRecord* interface);

/// `RuntimeCheckCast` to the class `T`, typed as that class.
template <class T>
Ref<T> CheckCast(const Ref<Object>& object) {
  return Ref<T>::adopt(static_cast<T*>(RuntimeCheckCast(object.get(), T::__Lookup()).release()));
}

/// The same for a temporary. If its class is exactly `T`, moves its count to the result.
template <class T>
Ref<T> CheckCast(Ref<Object>&& object) {
  const bool isExact = object && object.get()->classRecord() == T::__Lookup();
  return isExact ? Ref<T>::adopt(static_cast<T*>(object.release())) : CheckCast<T>(object);
}

/// `RuntimeNewObject` of the class `T`, typed as that class.
template <class T>
Ref<T> New() {
  return Ref<T>::adopt(static_cast<T*>(RuntimeNewObject(T::__Lookup()).release()));
}

/// The virtual method of that name, from the virtual table of the class; nil if there is none. An
/// assigning method may share its name with another method; prefix "=" selects the assigning one.
Function FindVirtualOperation(const ClassRecord& record, const String& name);

/// The index of the first event of that name in the class; nullopt if there is none.
std::optional<std::size_t> FindEvent(const ClassRecord& record, const String& name);

/// The property of that name, ignoring the case of ASCII letters; nil if there is none. A property
/// of a derived class hides one of its base.
const PropertyRow* FindProperty(const ClassRecord& record, std::string_view name);

}  // namespace veldrin
