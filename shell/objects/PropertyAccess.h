#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <type_traits>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/MethodShape.h"

namespace veldrin {

/// The accessors of all properties of one type. An accessor takes the object and the offset of the
/// field (unused by a computed property). The accessors of a shared property take neither.
template <class T>
struct PropertyAccess {
  using Type = T;
  using Getter = T (*)(Object* object, std::int32_t offset);
  using Setter = void (*)(Object* object, std::int32_t offset, detail::Passed<T> value);
  using SharedGetter = T (*)();
  using SharedSetter = void (*)(detail::Passed<T> value);

  /// Getter of a stored property.
  static T Get(Object* object, std::int32_t offset) { return field(object, offset); }

  /// Setter of a stored property.
  static void Set(Object* object, std::int32_t offset, detail::Passed<T> value) {
    field(object, offset) = value;
  }

  /// The `PropertyRow::Get` for this type. Raises `NilObjectException` for a nil object.
  static Variant GetValue(Function getter, Object* object, std::int32_t offset) {
    if (object == nullptr) RaiseNilObjectException();
    return Variant(reinterpret_cast<Getter>(getter)(object, offset));
  }

  /// The `PropertyRow::Set` for this type. Raises `NilObjectException` for a nil object, and the
  /// exceptions of `fromVariant`; then nothing is set.
  static void SetValue(Function setter, Object* object, std::int32_t offset, const Variant& value) {
    if (object == nullptr) RaiseNilObjectException();
    reinterpret_cast<Setter>(setter)(object, offset, fromVariant<T>(value));
  }

  /// As `GetValue`, for shared properties; the object may be nil.
  static Variant GetSharedValue(Function getter, Object* /*object*/, std::int32_t /*offset*/) {
    return Variant(reinterpret_cast<SharedGetter>(getter)());
  }

  /// As `SetValue`, for shared properties; the object may be nil.
  static void SetSharedValue(Function setter, Object* /*object*/, std::int32_t /*offset*/,
                             const Variant& value) {
    reinterpret_cast<SharedSetter>(setter)(fromVariant<T>(value));
  }

  static Function getter() { return reinterpret_cast<Function>(Get); }
  static Function setter() { return reinterpret_cast<Function>(Set); }

 private:
  static T& field(Object* object, std::int32_t offset) {
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset);
  }
};

/// An uncounted pointer: to a class record, a row or a function. Its type code is "p". The property
/// is read-only, because a written pointer could not be checked.
template <class T>
requires(std::is_pointer_v<T> && !std::same_as<T, void*>) struct PropertyAccess<T> {
  using Type = void*;

  static void* Get(Object* object, std::int32_t offset) {
    return std::bit_cast<void*>(*reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset));
  }
  static constexpr auto GetValue = PropertyAccess<void*>::GetValue;
  static constexpr PropertyRow::Set SetValue = nullptr;

  static Function getter() { return reinterpret_cast<Function>(Get); }
};

/// Reads a property. Raises `NilObjectException` for a nil object, unless the property is shared.
Variant RuntimeGenericGetter(PropertyRow::Get reflectionGet, Function getter, Object* object,
                             std::int32_t offset);

/// Writes a property that has a setter. Raises `NilObjectException` for a nil object, unless the
/// property is shared, and the exceptions of `fromVariant`.
void RuntimeGenericSetter(PropertyRow::Set reflectionSet, Function setter, Object* object,
                          std::int32_t offset, const Variant& value);

}  // namespace veldrin
