#pragma once

#include "reflection/MethodBase.h"

namespace veldrin::Introspection {

/// A method of a class, callable at run time:
///
///     arguments = {47.5, -122.5, day, -8.0, 0.0, 0.0};   // for "%%f8f8o<Date>f8&f8&f8"
///     method->Invoke(window, arguments);                 // writes the last two
///
/// `Invoke` checks all arguments before the call. It raises `IllegalCastException` if the receiver
/// or an argument is an object of another class, `OutOfBoundsException` for a wrong number of
/// arguments, `TypeMismatchException` for an argument that cannot be converted,
/// `NilObjectException` for a nil array or, unless the method is shared, a nil receiver, and
/// `FunctionNotFoundException` if the description has no row.
class MethodInfo : public Described<MethodInfo, MethodBase> {
 public:
  static constexpr FixedString FullName = "Introspection.MethodInfo";
  static void fillTable(ClassTable<MethodInfo>& table);

  /// Also removes "__Shared" and then sets `IsShared`.
  void FilterAttributes() override;
  /// Calls the method and ignores its result.
  void Invoke(const Ref<Object>& object, const Ref<Array<Variant>>& arguments) const;
  /// Calls the method and returns its result, nil if it has none. In the tables, its name is
  /// "Invoke".
  [[nodiscard]] Variant InvokeForResult(const Ref<Object>& object,
                                        const Ref<Array<Variant>>& arguments) const;

  [[nodiscard]] bool IsShared() const { return mIsShared; }
  /// The result type, looked up on first use; nil if the method has no result.
  [[nodiscard]] Ref<TypeInfo> ReturnType() const;

 private:
  bool mIsShared = false;
};

/// The concrete class, created from rows.
class MethodInfoImp final : public Described<MethodInfoImp, MethodInfo> {
 public:
  static constexpr FixedString FullName = "Introspection.MethodInfoImp";
  static void fillTable(ClassTable<MethodInfoImp>& table) {
    table.overriding<&MethodInfoImp::Constructor>("Constructor"_s, PublicHidden);
  }

  void Constructor(const MemberRow* row, ClassRecord* owner) override {
    MethodInfo::Constructor(row, owner);
  }
};

}  // namespace veldrin::Introspection
