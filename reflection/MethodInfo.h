#pragma once

#include "reflection/MethodBase.h"

namespace veldrin::Introspection {

/// A method of a class that can be called by its name.
///
///     arguments = {47.5, -122.5, day, -8.0, 0.0, 0.0};   // of "%%f8f8o<Date>f8&f8&f8"
///     method->Invoke(window, arguments);                 // the last two hold the results
///
/// The arguments are checked against the signature before anything is called: `Invoke` raises
/// `IllegalCastException` for an object, the receiver included, of another class,
/// `OutOfBoundsException` for a wrong number of them, `TypeMismatchException` for one that cannot
/// be converted, and `NilObjectException` for a nil array or, unless the method is shared, a nil
/// receiver. A method that was made from no row raises `FunctionNotFoundException`.
class MethodInfo : public Described<MethodInfo, MethodBase> {
 public:
  static constexpr FixedString FullName = "Introspection.MethodInfo";
  static void fillTable(ClassTable<MethodInfo>& table);

  /// Takes "__Shared" out as well.
  void FilterAttributes() override;
  /// Calls the method and drops its result.
  void Invoke(const Ref<Object>& object, const Ref<Array<Variant>>& arguments) const;
  /// Calls the method; nil where it has no result. In the tables this is "Invoke" too.
  [[nodiscard]] Variant InvokeForResult(const Ref<Object>& object,
                                        const Ref<Array<Variant>>& arguments) const;

  [[nodiscard]] bool IsShared() const { return mIsShared; }
  /// The type of the result, looked up on the first read; nil where there is none.
  [[nodiscard]] Ref<TypeInfo> ReturnType() const;

 private:
  bool mIsShared = false;
};

/// A method as it is made from a row.
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
