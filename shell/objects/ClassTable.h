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

/// The row of the virtual operation as the class has it now, however often bases have overridden
/// it. A table without one is a fault of the build: throws `FatalFault`.
MethodRow rowOf(const ClassRecord& record, const String& name, const String& signature);

/// The row of an event that the class has. Throws `FatalFault` likewise.
EventRow& eventRowOf(ClassRecord& record, const String& name, const String& signature);

/// A property object: a field that is read and written by calling it.
template <class Field>
concept PropertyObject = requires(Field& field, const typename Field::Type& value) {
  { std::as_const(field)() } -> std::same_as<typename Field::Type>;
  field(value);
};

}  // namespace detail

/// Writes the rows of the class `Self` into its record. Each call is one row, and the rows stand in
/// the order of the calls. Types, signatures and thunks are derived from the C++ types; a type
/// without a code does not compile.
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

  /// The attributes of the class itself.
  void attributes(std::span<const AttributeRow> rows) { record_.attributeRows = rows; }

  /// A virtual operation: a row, and a slot behind those that there are. With `extraFlags`, one of
  /// a special form.
  template <auto Method>
  void method(const String& name, const Visibility& visibility = Public,
              std::uint32_t extraFlags = 0) {
    plainMethod<Method>(name, visibility, extraFlags);
    giveSlot(record_.methodRows.back());
  }

  /// A virtual operation with a slot and no row: one that takes what no type code names.
  template <auto Method>
  void slot() {
    record_.virtualTable.push_back(own<Method>());
  }

  /// A virtual operation that takes the place of the base's of the same name and signature, and has
  /// its special form. Throws `FatalFault` where the base has no such operation.
  template <auto Method>
  void overriding(const String& name, const Visibility& visibility = Public) {
    constexpr std::uint32_t Forms = Flags::Assigns | Flags::VariableArguments;
    const MethodRow old = detail::rowOf(record_, name, ShapeOf<Method>::signature());
    plainMethod<Method>(name, visibility, old.flags & Forms);
    record_.methodRows.back().slot = old.slot;
    record_.virtualTable[static_cast<std::size_t>(old.slot)] = own<Method>();
  }

  /// A method with a row and no slot. With `extraFlags`, one of a special form.
  template <auto Method>
  void plainMethod(const String& name, const Visibility& visibility = Public,
                   std::uint32_t extraFlags = 0) {
    addMethod(name, visibility.flags | extraFlags, visibility.attributes,
              ShapeOf<Method>::signature(), own<Method>(), ShapeOf<Method>::Invoke);
  }

  /// A shared method: one that is called with no object.
  template <auto Method>
  void sharedMethod(const String& name, const Visibility& visibility = Public) {
    using Shape = SharedShapeOf<Method>;
    addMethod(name, visibility.flags | Flags::Shared, visibility.sharedAttributes,
              Shape::signature(), sharedFunctionOf<Method>(), Shape::InvokeShared);
  }

  /// A stored property, as in `property<&Veldrin::Rads>("Rads"_s)`. Where the field is a property
  /// object, which does more than to store, the property is a computed one.
  template <auto Field>
  void property(const String& name, const Visibility& visibility = Public) {
    if constexpr (detail::PropertyObject<TypeOf<Field>>) {
      computed<typename TypeOf<Field>::Type, Field, Field>(name, visibility);
    } else {
      using Access = PropertyAccess<TypeOf<Field>>;
      addProperty<Access>(name, visibility, offsetOf(Field), Access::getter(), Access::setter());
    }
  }

  /// A stored property that is read only.
  template <auto Field>
  void readOnlyField(const String& name, const Visibility& visibility = Public) {
    using Access = PropertyAccess<TypeOf<Field>>;
    addProperty<Access>(name, visibility, offsetOf(Field), Access::getter(), nullptr);
  }

  /// A computed property by its two accessors, which overload one name. Each is one function: the
  /// property's row, the method's row and a slot, where there is one, have the same.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void property(const String& name, const Visibility& visibility = Public) {
    computed<Type, Get, Set>(name, visibility);
  }

  /// A computed property whose two accessors are virtual operations.
  template <class Type, Type (Self::*Get)() const, void (Self::*Set)(Type)>
  void virtualProperty(const String& name) {
    property<Type, Get, Set>(name);
    giveSlot(record_.methodRows.end()[-2]);
    giveSlot(record_.methodRows.end()[-1]);
  }

  /// A computed property that is read only, where the class has no overload for writing.
  template <auto Get>
  void readOnlyProperty(const String& name, const Visibility& visibility = Public) {
    using Type = detail::Plain<decltype((std::declval<Self&>().*Get)())>;
    addProperty<PropertyAccess<Type>>(name, visibility, 0, functionOf<getter<Get, Type>>(),
                                      nullptr);
    plainMethod<getter<Get, Type>>(name + ".Get"_s, PublicHidden);
  }

  /// A shared property with storage: a static variable, as in
  /// `sharedProperty<&ArrayInfo::mArrayMap>("mArrayMap"_s, Private)`.
  template <auto Variable>
  void sharedProperty(const String& name, const Visibility& visibility = Public) {
    using Type = std::remove_cvref_t<decltype(*Variable)>;
    addSharedProperty<Type>(name, visibility, sharedFunctionOf<sharedGetter<Variable, Type>>(),
                            sharedFunctionOf<sharedSetter<Variable, Type>>());
  }

  /// A computed shared property by its two accessors, which are static functions.
  template <class Type, Type (*Get)(), void (*Set)(Type)>
  void sharedProperty(const String& name, const Visibility& visibility = Public) {
    addSharedProperty<Type>(name, visibility, sharedFunctionOf<Get>(), sharedFunctionOf<Set>());
    sharedMethod<Get>(name + ".Get"_s, PublicHidden);
    sharedMethod<Set>(name + ".Set"_s, PublicHidden);
  }

  /// Declares events that this class's objects raise, in this order.
  template <class... Signatures>
  void event(const Event<Signatures>&... declared) {
    (record_.eventRows.push_back({declared.name(), declared.signature(), nullptr}), ...);
  }

  /// Binds a method to an event that the class or an ancestor declares. Throws `FatalFault` where
  /// neither does.
  template <auto Method, class Signature>
  void handles(const Event<Signature>& event) {
    static_assert(std::same_as<ShapeOf<Method>, typename Event<Signature>::Shape>,
                  "the method does not take and give what handlers of the event do");
    detail::eventRowOf(record_, event.name(), event.signature()).handler = own<Method>();
  }

  /// Implements an interface by its operations, in the interface's order.
  template <class Interface, auto... Operations>
  void implements() {
    static_assert(std::same_as<typename Interface::Operations, std::tuple<ShapeOf<Operations>...>>,
                  "the methods do not take and give what the interface's operations do");
    record_.interfaceRows.push_back({Interface::__Lookup(), {own<Operations>()...}});
  }

 private:
  template <auto Field>
  using TypeOf = std::remove_cvref_t<decltype(std::declval<Self&>().*Field)>;

  /// The function of a method of this class or a base.
  template <auto Method>
  static Function own() {
    using Declaring = typename detail::Member<decltype(Method)>::Declaring;
    static_assert(std::derived_from<Self, Declaring>, "the method is none of this class");
    return functionOf<Method>();
  }

  /// A slot of its own for the operation of the row, behind those that there are.
  void giveSlot(MethodRow& row) {
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

  /// Where the field lies from the object's start, which is what a pointer to a member holds.
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
