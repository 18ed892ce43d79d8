#pragma once

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>

#include "shell/objects/Attributes.h"
#include "shell/objects/ClassRecord.h"
#include "shell/objects/MethodShape.h"
#include "shell/objects/PropertyAccess.h"

namespace veldrin {

/// Writes the rows of the class `Self` into its record. Each call is one row, and the rows stand in
/// the order of the calls. Types, signatures and thunks come from the C++ types: nothing is said
/// twice, and a type that has no code does not compile.
///
///     void CheckBox::fillTable(ClassTable<CheckBox>& table) {
///       table.event("Action"_s);
///       table.property<bool, &CheckBox::Value, &CheckBox::Value>("Value"_s);
///       table.property<&CheckBox::Caption>("Caption"_s);
///     }
template <class Self>
class ClassTable {
 public:
  explicit ClassTable(ClassRecord& record) : record_(record) {}

  /// The attributes of the class itself.
  void attributes(std::span<const AttributeRow> rows) { record_.attributeRows = rows; }

  /// A virtual operation: a row, and a slot behind those that there are.
  template <auto Method>
  void method(const String& name, const Visibility& visibility = Public) {
    plainMethod<Method>(name, visibility);
    record_.virtualTable.push_back(functionOf<Method>());
  }

  /// A virtual operation with a slot and no row: one that takes what no type code names.
  template <auto Method>
  void slot() {
    record_.virtualTable.push_back(functionOf<Method>());
  }

  /// A virtual operation that takes the place of the base's of the same name and signature.
  template <auto Method>
  void overriding(const String& name, const Visibility& visibility = Public) {
    const String signature = ShapeOf<Method>::signature();
    const auto overridden = std::ranges::find_if(record_.methodRows, [&](const MethodRow& row) {
      return row.name == name && row.signature == signature;
    });
    assert(overridden != record_.methodRows.end());
    std::ranges::replace(record_.virtualTable, overridden->function, functionOf<Method>());
    plainMethod<Method>(name, visibility);
  }

  /// A method with a row and no slot. With `extraFlags`, one of a special form.
  template <auto Method>
  void plainMethod(const String& name, const Visibility& visibility = Public,
                   std::uint32_t extraFlags = 0) {
    using Shape = ShapeOf<Method>;
    record_.methodRows.push_back({.name = name,
                                  .flags = visibility.flags | extraFlags,
                                  .attributes = visibility.attributes,
                                  .signature = Shape::signature(),
                                  .function = functionOf<Method>(),
                                  .invoker = Shape::Invoke});
  }

  /// A shared method: one that is called with no object.
  template <auto Method>
  void sharedMethod(const String& name, const Visibility& visibility = Public) {
    using SharedFunction = detail::SharedFunction<decltype(Method)>;
    using Shape = typename SharedFunction::Shape;
    record_.methodRows.push_back(
        {.name = name,
         .flags = visibility.flags | Flags::Shared,
         .attributes = visibility.sharedAttributes,
         .signature = Shape::signature(),
         .function = reinterpret_cast<Function>(&SharedFunction::template call<Method>),
         .invoker = Shape::InvokeShared});
  }

  /// A stored property, as in `property<&Veldrin::Rads>("Rads"_s)`.
  template <auto Field>
  void property(const String& name, const Visibility& visibility = Public) {
    using Type = std::remove_cvref_t<decltype(std::declval<Self&>().*Field)>;
    using Access = PropertyAccess<Type>;
    addProperty<Type>(name, visibility, offsetOf<Type>(Field),
                      reinterpret_cast<Function>(Access::Get),
                      reinterpret_cast<Function>(Access::Set));
  }

  /// A stored property that is read only.
  template <auto Field>
  void readOnlyField(const String& name, const Visibility& visibility = Public) {
    using Type = std::remove_cvref_t<decltype(std::declval<Self&>().*Field)>;
    addProperty<Type>(name, visibility, offsetOf<Type>(Field),
                      reinterpret_cast<Function>(PropertyAccess<Type>::Get), nullptr);
  }

  /// A computed property by its two accessors, which overload one name.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void property(const String& name, const Visibility& visibility = Public) {
    addProperty<Type>(name, visibility, 0, reinterpret_cast<Function>(getter<Get, Type>),
                      reinterpret_cast<Function>(setter<Set, Type>));
    plainMethod<getter<Get, Type>>(name + ".Get"_s, PublicHidden);
    plainMethod<setter<Set, Type>>(name + ".Set"_s, PublicHidden);
  }

  /// A computed property whose two accessors are virtual operations.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void virtualProperty(const String& name) {
    property<Type, Get, Set>(name);
    record_.virtualTable.push_back(reinterpret_cast<Function>(getter<Get, Type>));
    record_.virtualTable.push_back(reinterpret_cast<Function>(setter<Set, Type>));
  }

  /// A computed property that is read only, where the class has no overload for writing.
  template <auto Get>
  void readOnlyProperty(const String& name, const Visibility& visibility = Public) {
    using Type = detail::Plain<decltype((std::declval<Self&>().*Get)())>;
    addProperty<Type>(name, visibility, 0, reinterpret_cast<Function>(getter<Get, Type>), nullptr);
    plainMethod<getter<Get, Type>>(name + ".Get"_s, PublicHidden);
  }

  /// Declares an event that this class's objects raise.
  void event(const String& name) { record_.eventRows.push_back({name, nullptr}); }

  /// Binds a method to an event that an ancestor declares.
  template <auto Method>
  void handles(const String& name) {
    const std::int32_t index = FindEvent(record_, name);
    assert(index >= 0);
    record_.eventRows[static_cast<std::size_t>(index)].handler = functionOf<Method>();
  }

  /// Implements an interface by its operations, in the interface's order.
  template <class Interface, auto... Operations>
  void implements() {
    static_assert(sizeof...(Operations) == Interface::OperationCount);
    record_.interfaceRows.push_back({Interface::__Lookup(), {functionOf<Operations>()...}});
  }

 private:
  template <auto Get, class Type>
  static Type getter(Object* object, std::int32_t /*index*/) {
    return (static_cast<Self&>(*object).*Get)();
  }

  template <auto Set, class Type>
  static void setter(Object* object, std::int32_t /*index*/, const Type& value) {
    (static_cast<Self&>(*object).*Set)(value);
  }

  /// Where the field lies from the object's start, which is what a pointer to a member holds.
  template <class Type>
  static std::int32_t offsetOf(Type Self::*field) {
    return static_cast<std::int32_t>(std::bit_cast<std::ptrdiff_t>(field));
  }

  template <class Type>
  void addProperty(const String& name, const Visibility& visibility, std::int32_t offset,
                   Function get, Function set) {
    record_.propertyRows.push_back(
        {.name = name,
         .flags = visibility.flags | (set == nullptr ? 0 : Flags::Writable),
         .attributes = visibility.attributes,
         .type = typeCodeOf<Type>(),
         .fieldOffset = offset,
         .getter = get,
         .setter = set,
         .reflectionGet = PropertyAccess<Type>::GetValue,
         .reflectionSet = set == nullptr ? nullptr : PropertyAccess<Type>::SetValue});
  }

  ClassRecord& record_;
};

}  // namespace veldrin
