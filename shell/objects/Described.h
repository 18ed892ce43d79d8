#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
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

/// The hook as stored in a record; nil if `Self` only inherits it. A private or overloaded hook
/// does not compile.
template <class Self, auto Method>
Hook hookOf() {
  using Pointer = MemberPointer<decltype(Method)>;
  if constexpr (std::same_as<typename Pointer::Declaring, Self>) {
    static_assert(std::same_as<typename Pointer::Declared, void()>,
                  "a hook is a member function `void ()`, not noexcept");
    return [](Object& object) {
      RuntimeStackCheck();
      (static_cast<Self&>(object).*Method)();
    };
  }
  return nullptr;
}

/// Calls `Self::fillTable`, unless `Self` inherits it: building the base has already called it.
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

/// Provides the `ClassRecord` of class `Self`, which derives from `Described` instead of directly
/// from `Base`:
///
///     class CheckBox final : public Described<CheckBox, RectControl> {
///      public:
///       static constexpr FixedString FullName = "CheckBox";
///
/// `Self` may declare `static void fillTable(ClassTable<Self>&)` for its rows, and the hooks
/// `void __Init()`, `void Destructor()` and `void __Exit()`. They must be public, not `noexcept`,
/// and of exactly these types; anything else does not compile.
template <class Self, class Base>
class Described : public Base {
 public:
  /// Set by `__ctblinit`; nil before.
  static inline ClassRecord* __ctbl = nullptr;

  /// The record, built on first use. Never nil.
  static ClassRecord* __Lookup() {
    if (__ctbl == nullptr) __ctblinit();
    return __ctbl;
  }

  /// Builds the records of the bases, then this one; does nothing if it exists. Raises
  /// `StackOverflowException` if there are too many levels of bases. Throws `FatalFault` if the
  /// table overrides a method or binds an event that does not exist.
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
    // Remove the incomplete record; the next use builds a new one.
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
  record.__Init = detail::hookOf<Self, &Self::__Init>();
  record.Destructor = detail::hookOf<Self, &Self::Destructor>();
  record.__Exit = detail::hookOf<Self, &Self::__Exit>();
  detail::fillTable<Self, &Self::fillTable, &Base::fillTable>(record);
}

/// Provides the record of an interface. The record has a name but no rows.
///
///     struct Writeable : DescribedInterface<Writeable> {
///       static constexpr FixedString FullName = "Writeable";
///       using Operations = std::tuple<MethodShape<void, String>, MethodShape<void>,
///                                     MethodShape<bool>>;
///     };
///
/// `Operations` are the shapes of the methods that a class must implement, in order.
template <class Self>
struct DescribedInterface {
  /// Set by `__ctblinit`; nil before.
  static inline ClassRecord* __ctbl = nullptr;

  /// The record, built on first use. Never nil.
  static ClassRecord* __Lookup() {
    if (__ctbl == nullptr) __ctblinit();
    return __ctbl;
  }

  /// Builds the record; does nothing if it exists.
  static void __ctblinit() {
    RuntimeStackCheck();
    if (__ctbl != nullptr) return;
    __ctbl = RuntimeNewClass(nullptr);
    __ctbl->name = ConstantText<Self::FullName>;
    __ctbl->isInterface = true;
  }
};

}  // namespace veldrin
