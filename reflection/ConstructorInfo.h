#pragma once

#include "reflection/MethodBase.h"

namespace veldrin::Introspection {

/// A constructor of a class. A class that lists none has one without a row, which just makes the
/// object.
class ConstructorInfo : public Described<ConstructorInfo, MethodBase> {
 public:
  static constexpr FixedString FullName = "Introspection.ConstructorInfo";
  static void fillTable(ClassTable<ConstructorInfo>& table);

  /// A new object of the class that was described, on which the constructor has run. Raises
  /// `NilObjectException` for a nil array and `OutOfBoundsException` for a wrong number of
  /// arguments before an object is made, what `fromVariant` raises before the constructor is
  /// called, and `UnsupportedFormatException` for a class of which no object can be made.
  [[nodiscard]] Ref<Object> Invoke(const Ref<Array<Variant>>& arguments) const;
};

/// A constructor as it is made from a row.
class ConstructorInfoImp final : public Described<ConstructorInfoImp, ConstructorInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.ConstructorInfoImp";
  static void fillTable(ClassTable<ConstructorInfoImp>& table) {
    table.overriding<&ConstructorInfoImp::Constructor>("Constructor"_s, PublicHidden);
  }

  void Constructor(const MemberRow* row, ClassRecord* owner) override {
    ConstructorInfo::Constructor(row, owner);
  }
};

}  // namespace veldrin::Introspection
