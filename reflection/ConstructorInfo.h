#pragma once

#include "reflection/MethodBase.h"

namespace veldrin::Introspection {

/// A constructor of a class. A class that lists none gets one without a row, which only creates the
/// object.
class ConstructorInfo : public Described<ConstructorInfo, MethodBase> {
 public:
  static constexpr FixedString FullName = "Introspection.ConstructorInfo";
  static void fillTable(ClassTable<ConstructorInfo>& table);

  /// Creates an object and calls the constructor. Before creating the object, raises
  /// `NilObjectException` for a nil array, `OutOfBoundsException` for a wrong number of arguments
  /// and `UnsupportedFormatException` for an abstract class. Before calling the constructor, raises
  /// the exceptions of `fromVariant`.
  [[nodiscard]] Ref<Object> Invoke(const Ref<Array<Variant>>& arguments) const;
};

/// The concrete class, created from rows.
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
