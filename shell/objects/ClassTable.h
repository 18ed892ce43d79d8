#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include "shell/objects/Attributes.h"
#include "shell/objects/ClassRecord.h"
#include "shell/objects/Event.h"
#include "shell/objects/MethodShape.h"
#include "shell/objects/PropertyAccess.h"

namespace veldrin {

namespace detail {

/// The newest row of the virtual method. Throws `FatalFault` if the class has no such method.
MethodRow rowOf(const ClassRecord& record, const String& name, const String& signature);

/// The newest row of the event. Throws `FatalFault` if the class has no such event.
EventRow& eventRowOf(ClassRecord& record, const String& name, const String& signature);

/// A field that is read by `field()` and written by `field(value)`, such as a control's `Live`.
template <class Field>
concept PropertyObject = requires(Field& field, const typename Field::Type& value) {
  { std::as_const(field)() } -> std::same_as<typename Field::Type>;
  field(value);
};

}  // namespace detail

/// Fills the record of class `Self`, with rows in the order of the calls. Signatures, type codes
/// and thunks are deduced from the C++ types. A type without a type code does not compile.
///
///     void CheckBox::fillTable(ClassTable<CheckBox>& table) {
///       table.event(Events::Action);
///       table.property<bool, &CheckBox::Value, &CheckBox::Value>("Value"_s);
///       table.property<&CheckBox::Caption>("Caption"_s);
///     }
template <class Self>
class ClassTable {
 public:
  explicit ClassTable(ClassRecord& record) : record_(record) {}

  void attributes(std::span<const AttributeRow> rows) { record_.attributeRows = rows; }

  /// A virtual method: adds a row and a slot of the virtual table. `extraFlags`: `Flags::Assigns`,
  /// `Flags::VariableArguments`.
  template <auto Method>
  void method(const String& name, const Visibility& visibility = Public,
              std::uint32_t extraFlags = 0) {
    plainMethod<Method>(name, visibility, extraFlags);
    addSlot(record_.methodRows.back());
  }

  /// Overrides the virtual method of the base with the same name and signature, and keeps its
  /// `extraFlags`. Throws `FatalFault` if the base has no such method.
  template <auto Method>
  void overriding(const String& name, const Visibility& visibility = Public) {
    constexpr std::uint32_t ExtraFlags = Flags::Assigns | Flags::VariableArguments;
    const MethodRow old = detail::rowOf(record_, name, ShapeOf<Method>::signature());
    plainMethod<Method>(name, visibility, old.flags & ExtraFlags);
    record_.methodRows.back().slot = old.slot;
    record_.virtualTable[static_cast<std::size_t>(old.slot)] = own<Method>();
  }

  /// A non-virtual method: a row without a slot. `extraFlags` as for `method`.
  template <auto Method>
  void plainMethod(const String& name, const Visibility& visibility = Public,
                   std::uint32_t extraFlags = 0) {
    addMethod(name, visibility.flags | extraFlags, visibility.attributes,
              ShapeOf<Method>::signature(), own<Method>(), ShapeOf<Method>::Invoke);
  }

  /// A shared method, called without an object.
  template <auto Method>
  void sharedMethod(const String& name, const Visibility& visibility = Public) {
    using Shape = SharedShapeOf<Method>;
    addMethod(name, visibility.flags | Flags::Shared, visibility.sharedAttributes,
              Shape::signature(), sharedFunctionOf<Method>(), Shape::InvokeShared);
  }

  /// A stored property, as in `property<&Veldrin::Rads>("Rads"_s)`. If the field is a
  /// `PropertyObject`, the property is computed.
  template <auto Field>
  void property(const String& name, const Visibility& visibility = Public) {
    if constexpr (detail::PropertyObject<TypeOf<Field>>) {
      computed<typename TypeOf<Field>::Type, Field, Field>(name, visibility);
    } else {
      using Access = PropertyAccess<TypeOf<Field>>;
      addProperty<Access>(name, visibility, offsetOf(Field), Access::getter(), Access::setter());
    }
  }

  /// A read-only stored property.
  template <auto Field>
  void readOnlyField(const String& name, const Visibility& visibility = Public) {
    using Access = PropertyAccess<TypeOf<Field>>;
    addProperty<Access>(name, visibility, offsetOf(Field), Access::getter(), nullptr);
  }

  /// A computed property with two overloaded accessors. Adds the property row and the method rows
  /// `name.Get` and `name.Set`.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void property(const String& name, const Visibility& visibility = Public) {
    computed<Type, Get, Set>(name, visibility);
  }

  /// A computed property whose accessors are virtual methods.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void virtualProperty(const String& name) {
    property<Type, Get, Set>(name);
    addSlot(record_.methodRows.end()[-2]);
    addSlot(record_.methodRows.end()[-1]);
  }

  /// A read-only computed property.
  template <auto Get>
  void readOnlyProperty(const String& name, const Visibility& visibility = Public) {
    using Type = detail::Plain<decltype((std::declval<Self&>().*Get)())>;
    addProperty<PropertyAccess<Type>>(name, visibility, 0, functionOf<getter<Get, Type>>(),
                                      nullptr);
    plainMethod<getter<Get, Type>>(name + ".Get"_s, PublicHidden);
  }

  /// A shared property, stored in a static variable:
  /// `sharedProperty<&Registry::mArrayMap>("mArrayMap"_s, Private)`.
  template <auto Variable>
  void sharedProperty(const String& name, const Visibility& visibility = Public) {
    using Type = std::remove_cvref_t<decltype(*Variable)>;
    addSharedProperty<Type>(name, visibility, sharedFunctionOf<sharedGetter<Variable, Type>>(),
                            sharedFunctionOf<sharedSetter<Variable, Type>>());
  }

  /// A computed shared property; its accessors are static functions.
  template <class Type, Type (*Get)(), void (*Set)(Type)>
  void sharedProperty(const String& name, const Visibility& visibility = Public) {
    addSharedProperty<Type>(name, visibility, sharedFunctionOf<Get>(), sharedFunctionOf<Set>());
    sharedMethod<Get>(name + ".Get"_s, PublicHidden);
    sharedMethod<Set>(name + ".Set"_s, PublicHidden);
  }

  /// Declares events of the class, in this order. To redeclare an event of the base, call `handles`
  /// first: then this class handles the event of the base, and derived classes handle the new one.
  template <class... Signatures>
  void event(const Event<Signatures>&... declared) {
    (record_.eventRows.push_back({declared.name(), declared.signature(), nullptr}), ...);
  }

  /// Makes a method the handler of the newest declaration of an event, in the class or a base.
  /// Throws `FatalFault` if neither declares it.
  template <auto Method, class Signature>
  void handles(const Event<Signature>& event) {
    static_assert(std::same_as<ShapeOf<Method>, typename Event<Signature>::Shape>,
                  "the method does not have the signature of the event");
    detail::eventRowOf(record_, event.name(), event.signature()).handler = own<Method>();
  }

  /// Implements an interface. `Operations` are methods, in the order of `Interface::Operations`.
  template <class Interface, auto... Operations>
  void implements() {
    static_assert(std::same_as<typename Interface::Operations, std::tuple<ShapeOf<Operations>...>>,
                  "the methods do not have the signatures of the interface");
    record_.interfaceRows.push_back({Interface::__Lookup(), {own<Operations>()...}});
  }

 private:
  template <auto Field>
  using TypeOf = std::remove_cvref_t<decltype(std::declval<Self&>().*Field)>;

  /// The function of a method that `Self` declares or inherits.
  template <auto Method>
  static Function own() {
    using Declaring = typename detail::Member<decltype(Method)>::Declaring;
    static_assert(std::derived_from<Self, Declaring>, "the method is not a member of this class");
    return functionOf<Method>();
  }

  void addSlot(MethodRow& row) {
    row.slot = static_cast<std::int32_t>(record_.virtualTable.size());
    record_.virtualTable.push_back(row.function);
  }

  template <auto Get, class Type>
  static Type getter(Object* object, std::int32_t /*index*/) {
    return (static_cast<Self&>(*object).*Get)();
  }

  template <auto Set, class Type>
  static void setter(Object* object, std::int32_t /*index*/, const Type& value) {
    (static_cast<Self&>(*object).*Set)(value);
  }

  template <auto Variable, class Type>
  static Type sharedGetter() {
    return *Variable;
  }

  template <auto Variable, class Type>
  static void sharedSetter(const Type& value) {
    *Variable = value;
  }

  /// In the ABIs of GCC and Clang, a pointer to a data member holds the offset.
  template <class Class, class Type>
  static std::int32_t offsetOf(Type Class::*field) {
    return static_cast<std::int32_t>(
        std::bit_cast<std::ptrdiff_t>(static_cast<Type Self::*>(field)));
  }

  template <class Type, auto Get, auto Set>
  void computed(const String& name, const Visibility& visibility) {
    addProperty<PropertyAccess<Type>>(name, visibility, 0, functionOf<getter<Get, Type>>(),
                                      functionOf<setter<Set, Type>>());
    plainMethod<getter<Get, Type>>(name + ".Get"_s, PublicHidden);
    plainMethod<setter<Set, Type>>(name + ".Set"_s, PublicHidden);
  }

  void addMethod(const String& name, std::uint32_t flags, std::span<const AttributeRow> attributes,
                 const String& signature, Function function, Invoker invoker) {
    record_.methodRows.push_back({{name, flags, attributes}, signature, function, invoker, -1});
  }

  template <class Access>
  void addProperty(const String& name, const Visibility& visibility, std::int32_t offset,
                   Function get, Function set) {
    record_.propertyRows.push_back(
        {{name, visibility.flags | (set == nullptr ? 0 : Flags::Writable), visibility.attributes},
         typeCodeOf<typename Access::Type>(),
         offset,
         get,
         set,
         Access::GetValue,
         set == nullptr ? nullptr : Access::SetValue});
  }

  template <class Type>
  void addSharedProperty(const String& name, const Visibility& visibility, Function get,
                         Function set) {
    using Access = PropertyAccess<Type>;
    record_.propertyRows.push_back(
        {{name, visibility.flags | Flags::Shared | Flags::Writable, visibility.sharedAttributes},
         typeCodeOf<Type>(),
         0,
         get,
         set,
         Access::GetSharedValue,
         Access::SetSharedValue});
  }

  ClassRecord& record_;
};

}  // namespace veldrin
