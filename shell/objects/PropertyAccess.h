#pragma once

#include <cstdint>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// The accessors of all properties of one type. A getter takes the object and an index word, which
/// is the field's offset for a stored property and nothing for a computed one.
template <class T>
struct PropertyAccess {
  using Getter = T (*)(Object* object, std::int32_t offset);
  using Setter = void (*)(Object* object, std::int32_t offset, const T& value);

  /// `Double.Get` and its kin: the generic getter of a stored property.
  static T Get(Object* object, std::int32_t offset) { return field(object, offset); }

  /// `Double.Set` and its kin. A reference or a text that is replaced is given up.
  static void Set(Object* object, std::int32_t offset, const T& value) {
    field(object, offset) = value;
  }

  /// `Double.Introspection.GetValue` and its kin.
  static Variant GetValue(Function getter, Object* object, std::int32_t offset) {
    return Variant(reinterpret_cast<Getter>(getter)(object, offset));
  }

  /// `Double.Introspection.SetValue` and its kin. Raises what `fromVariant` raises, before anything
  /// is set.
  static void SetValue(Function setter, Object* object, std::int32_t offset, const Variant& value) {
    reinterpret_cast<Setter>(setter)(object, offset, fromVariant<T>(value));
  }

 private:
  static T& field(Object* object, std::int32_t offset) {
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + offset);
  }
};

/// The property's value as a variant. Raises `NilObjectException` for a nil object.
Variant RuntimeGenericGetter(PropertyRow::Get reflectionGet, Function getter, Object* object,
                             std::int32_t offset);

/// Sets the property to what the variant holds. Raises `NilObjectException` for a nil object, and
/// what `fromVariant` raises.
void RuntimeGenericSetter(PropertyRow::Set reflectionSet, Function setter, Object* object,
                          std::int32_t offset, const Variant& value);

}  // namespace veldrin
