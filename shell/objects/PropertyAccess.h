#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <type_traits>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/MethodShape.h"

namespace veldrin {

/// The accessors of all properties of one type. A getter takes the object and an index word, which
/// is the field's offset for a stored property and nothing for a computed one; the accessors of a
/// shared property take neither.
template <class T>
struct PropertyAccess {
  /// What a reader of the property sees.
  using Type = T;
  using Getter = T (*)(Object* object, std::int32_t offset);
  using Setter = void (*)(Object* object, std::int32_t offset, detail::Handed<T> value);
  using SharedGetter = T (*)();
  using SharedSetter = void (*)(detail::Handed<T> value);

  /// `Double.Get` and its kin: the generic getter of a stored property.
  static T Get(Object* object, std::int32_t offset) { return field(object, offset); }

  /// `Double.Set` and its kin. A reference or a text that is replaced is given up.
  static void Set(Object* object, std::int32_t offset, detail::Handed<T> value) {
    field(object, offset) = value;
  }

  /// `Double.Introspection.GetValue` and its kin. Raises `NilObjectException` for a nil object, as
  /// `SetValue` does.
  static Variant GetValue(Function getter, Object* object, std::int32_t offset) {
    if (object == nullptr) RaiseNilObjectException();
    return Variant(reinterpret_cast<Getter>(getter)(object, offset));
  }

  /// `Double.Introspection.SetValue` and its kin. Raises what `fromVariant` raises, before anything
  /// is set.
  static void SetValue(Function setter, Object* object, std::int32_t offset, const Variant& value) {
    if (object == nullptr) RaiseNilObjectException();
    reinterpret_cast<Setter>(setter)(object, offset, fromVariant<T>(value));
  }

  /// `Double.Introspection.GetSharedValue` and its kin, for which nil is an object like any other.
  static Variant GetSharedValue(Function getter, Object* /*object*/, std::int32_t /*offset*/) {
    return Variant(reinterpret_cast<SharedGetter>(getter)());
  }

  /// `Double.Introspection.SetSharedValue` and its kin. Raises what `fromVariant` raises.
  static void SetSharedValue(Function setter, Object* /*object*/, std::int32_t /*offset*/,
                             const Variant& value) {
    reinterpret_cast<SharedSetter>(setter)(fromVariant<T>(value));
  }

  /// `Get` and `Set` as a row keeps them.
  static Function getter() { return reinterpret_cast<Function>(Get); }
  static Function setter() { return reinterpret_cast<Function>(Set); }

 private:
  static T& field(Object* object, std::int32_t offset) {
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset);
  }
};

/// A pointer that is no counted reference: a class record, a row, a function. It is shown as "Ptr",
/// and can only be read, because a written pointer could not be checked.
template <class T>
requires(std::is_pointer_v<T> && !std::same_as<T, void*>) struct PropertyAccess<T> {
  using Type = void*;

  /// The address that the field holds.
  static void* Get(Object* object, std::int32_t offset) {
    return std::bit_cast<void*>(*reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset));
  }
  /// As those of any other type; there is no way to set.
  static constexpr auto GetValue = PropertyAccess<void*>::GetValue;
  static constexpr PropertyRow::Set SetValue = nullptr;

  /// `Get` as a row keeps it.
  static Function getter() { return reinterpret_cast<Function>(Get); }
};

/// The property's value as a variant. Raises `NilObjectException` for a nil object, unless the
/// property is shared.
Variant RuntimeGenericGetter(PropertyRow::Get reflectionGet, Function getter, Object* object,
                             std::int32_t offset);

/// Sets the property to what the variant holds. Raises likewise, and what `fromVariant` raises.
void RuntimeGenericSetter(PropertyRow::Set reflectionSet, Function setter, Object* object,
                          std::int32_t offset, const Variant& value);

}  // namespace veldrin
