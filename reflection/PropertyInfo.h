#pragma once

#include <cstdint>

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A property of a class, which can be read and written by its name.
class PropertyInfo : public Described<PropertyInfo, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.PropertyInfo";
  static void fillTable(ClassTable<PropertyInfo>& table);

  /// Describes a `PropertyRow` of the class; nil is a member without one.
  void Constructor(const MemberRow* row, ClassRecord* owner) override;
  /// Takes "__Shared" out as well.
  void FilterAttributes() override;
  /// The value that the object has, or that all have where it is shared. Raises
  /// `IllegalCastException` for an object of another class, `RuntimeException` where the property
  /// cannot be read, `NilObjectException` for nil unless it is shared.
  [[nodiscard]] Variant Value(const Ref<Object>& object) const;
  /// Sets the value: the assigning operation `=Value`. Raises likewise, and what `fromVariant`
  /// raises before anything is set.
  void Value(const Ref<Object>& object, const Variant& value) const;

  [[nodiscard]] bool CanRead() const { return mGetterValue != nullptr; }
  [[nodiscard]] bool CanWrite() const { return mSetterValue != nullptr; }
  [[nodiscard]] bool IsShared() const { return mIsShared; }
  [[nodiscard]] Ref<TypeInfo> PropertyType() const { return mTypeValue; }

 private:
  PropertyRow::Get mGetInvoker = nullptr;
  Function mGetterValue = nullptr;
  bool mIsShared = false;
  std::int32_t mOffsetParamValue = 0;
  PropertyRow::Set mSetInvoker = nullptr;
  Function mSetterValue = nullptr;
  Ref<TypeInfo> mTypeValue;
};

/// A property as it is made from a row.
class PropertyInfoImp final : public Described<PropertyInfoImp, PropertyInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.PropertyInfoImp";
  static void fillTable(ClassTable<PropertyInfoImp>& table) {
    table.overriding<&PropertyInfoImp::Constructor>("Constructor"_s, PublicHidden);
  }

  void Constructor(const MemberRow* row, ClassRecord* owner) override {
    PropertyInfo::Constructor(row, owner);
  }
};

}  // namespace veldrin::Introspection
