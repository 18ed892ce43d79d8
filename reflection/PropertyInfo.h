#pragma once

#include <cstdint>

#include "reflection/TypeInfo.h"

namespace veldrin::Introspection {

/// A property of a class, readable and writable at run time.
class PropertyInfo : public Described<PropertyInfo, MemberInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.PropertyInfo";
  static void fillTable(ClassTable<PropertyInfo>& table);

  /// `row` is a `PropertyRow` or nil.
  void Constructor(const MemberRow* row, ClassRecord* owner) override;
  /// Also removes "__Shared" and then sets `IsShared`.
  void FilterAttributes() override;
  /// Reads the property. Raises `IllegalCastException` for an object of another class,
  /// `RuntimeException` if the property is not readable, `NilObjectException` for nil unless the
  /// property is shared.
  [[nodiscard]] Variant Value(const Ref<Object>& object) const;
  /// Writes the property (the assigning method `=Value`). Raises `RuntimeException` if it is not
  /// writable, the other exceptions of reading, and those of `fromVariant`; then nothing is set.
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

/// The concrete class, created from rows.
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
