#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/ClassTable.h"
#include "shell/objects/Stack.h"

namespace veldrin {

namespace detail {

template <class Pointer>
struct MemberPointer;
template <class Class, class Type>
struct MemberPointer<Type Class::*> {
  using Declaring = Class;
  using Declared = Type;
};

/// The step as a record keeps it, or nil where `Self` does not declare it but a base does. One that
/// is private or overloaded has no address here, and does not compile.
template <class Self, auto Step>
LifeStep lifeStepOf() {
  using Pointer = MemberPointer<decltype(Step)>;
  if constexpr (std::same_as<typename Pointer::Declaring, Self>) {
    static_assert(std::same_as<typename Pointer::Declared, void()>,
                  "a step of an object's life is a member function `void ()`, not noexcept");
    return [](Object& object) {
      RuntimeStackCheck();
      (static_cast<Self&>(object).*Step)();
    };
  }
  return nullptr;
}

/// Lets `Self` fill its table where it declares how; that of a base has filled the base's.
template <class Self, auto Fill, auto FillOfBase>
void fillTable(ClassRecord& record) {
  if constexpr (std::same_as<decltype(Fill), void (*)(ClassTable<Self>&)>) {
    ClassTable<Self> table(record);
    Fill(table);
  } else {
    static_assert(std::same_as<decltype(Fill), decltype(FillOfBase)>,
                  "fillTable is a static function that takes the table of its own class");
    static_assert(Fill == FillOfBase,
                  "fillTable is a static function that takes the table of its own class");
  }
}

}  // namespace detail

/// Gives the class `Self` its record. A class of the system derives from this in place of its base:
///
///     class CheckBox final : public Described<CheckBox, RectControl> {
///      public:
///       static constexpr FixedString FullName = "CheckBox";
///
/// and declares, where it has them, `static void fillTable(ClassTable<CheckBox>&)` for its rows and
/// the steps `void __Init()`, `void Destructor()` and `void __Exit()` of its objects' life, all of
/// them public. One of these that is private, `noexcept` or of another type does not compile.
template <class Self, class Base>
class Described : public Base {
 public:
  /// The class's global: nil until the class has been built.
  static inline ClassRecord* __ctbl = nullptr;

  /// The record, built now if nobody needed it before. Never nil.
  static ClassRecord* __Lookup() {
    if (__ctbl == nullptr) __ctblinit();
    return __ctbl;
  }

  /// Builds the record, its base's first; does nothing the second time. Raises
  /// `StackOverflowException` where the bases go too deep, and throws `FatalFault` where the table
  /// overrides or binds what there is not.
  static void __ctblinit();

  [[nodiscard]] ClassRecord* classRecord() const override { return __Lookup(); }

 protected:
  Described() = default;

 private:
  static void describe(ClassRecord& record);
};

template <class Self, class Base>
void Described<Self, Base>::__ctblinit() {
  RuntimeStackCheck();
  if (__ctbl != nullptr) return;
  ClassRecord* base = nullptr;
  if constexpr (!std::is_same_v<Base, Object>) base = Base::__Lookup();
  __ctbl = RuntimeNewClass(base);
  try {
    describe(*__ctbl);
  } catch (...) {
    // What is half built is found by nobody; the next need builds it anew.
    RuntimeDropClass(std::exchange(__ctbl, nullptr));
    throw;
  }
}

template <class Self, class Base>
void Described<Self, Base>::describe(ClassRecord& record) {
  record.name = ConstantText<Self::FullName>;
  record.instanceSize = static_cast<std::int32_t>(sizeof(Self));
  if constexpr (!std::is_abstract_v<Self> && std::is_default_constructible_v<Self>) {
    record.allocate = []() -> Object* { return std::make_unique<Self>().release(); };
  }
  record.__Init = detail::lifeStepOf<Self, &Self::__Init>();
  record.Destructor = detail::lifeStepOf<Self, &Self::Destructor>();
  record.__Exit = detail::lifeStepOf<Self, &Self::__Exit>();
  detail::fillTable<Self, &Self::fillTable, &Base::fillTable>(record);
}

/// Gives an interface its record: a name and the mark of an interface, and nothing else.
///
///     struct Writeable : DescribedInterface<Writeable> {
///       static constexpr FixedString FullName = "Writeable";
///       using Operations = std::tuple<MethodShape<void, String>, MethodShape<void>,
///                                     MethodShape<bool>>;
///     };
///
/// `Operations` are the shapes of the interface's operations in their order.
template <class Self>
struct DescribedInterface {
  /// As that of a class.
  static inline ClassRecord* __ctbl = nullptr;

  /// The record, built now if nobody needed it before. Never nil.
  static ClassRecord* __Lookup() {
    if (__ctbl == nullptr) __ctblinit();
    return __ctbl;
  }

  /// Builds the record; does nothing the second time.
  static void __ctblinit() {
    RuntimeStackCheck();
    if (__ctbl != nullptr) return;
    __ctbl = RuntimeNewClass(nullptr);
    __ctbl->name = ConstantText<Self::FullName>;
    __ctbl->isInterface = true;
  }
};

}  // namespace veldrin
