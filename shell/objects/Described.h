#pragma once

#include <memory>
#include <type_traits>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/ClassTable.h"
#include "shell/objects/Stack.h"

namespace veldrin {

/// Gives the class `Self` its record. A class of the system derives from this in place of its base:
///
///     class CheckBox final : public Described<CheckBox, RectControl> {
///      public:
///       static constexpr FixedString FullName = "CheckBox";
///
/// and declares, where it has them, `static void fillTable(ClassTable<CheckBox>&)` for its rows and
/// the steps `__Init()`, `Destructor()` and `__Exit()` of its objects' life.
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
  /// `StackOverflowException` where the bases go too deep.
  static void __ctblinit();

  [[nodiscard]] ClassRecord* classRecord() const override { return __Lookup(); }

 protected:
  Described() = default;
};

template <class Self, class Base>
void Described<Self, Base>::__ctblinit() {
  RuntimeStackCheck();
  if (__ctbl != nullptr) return;
  ClassRecord* base = nullptr;
  if constexpr (!std::is_same_v<Base, Object>) base = Base::__Lookup();
  __ctbl = RuntimeNewClass(base);
  __ctbl->name = StringConstant(&ConstantString<Self::FullName, Encoding::UTF8>::record);
  __ctbl->instanceSize = static_cast<std::int32_t>(sizeof(Self));
  if constexpr (!std::is_abstract_v<Self> && std::is_default_constructible_v<Self>) {
    __ctbl->allocate = []() -> Object* { return std::make_unique<Self>().release(); };
  }
  // A step that is inherited has its base's type: it stands in the base's record alone.
  using Step = void (Self::*)();
  if constexpr (requires { requires std::is_same_v<decltype(&Self::__Init), Step>; }) {
    __ctbl->__Init = [](Object& object) { static_cast<Self&>(object).__Init(); };
  }
  if constexpr (requires { requires std::is_same_v<decltype(&Self::Destructor), Step>; }) {
    __ctbl->Destructor = [](Object& object) { static_cast<Self&>(object).Destructor(); };
  }
  if constexpr (requires { requires std::is_same_v<decltype(&Self::__Exit), Step>; }) {
    __ctbl->__Exit = [](Object& object) { static_cast<Self&>(object).__Exit(); };
  }
  if constexpr (requires(ClassTable<Self> table) { Self::fillTable(table); }) {
    ClassTable<Self> table(*__ctbl);
    Self::fillTable(table);
  }
}

/// Gives an interface its record: a name and the mark of an interface, and nothing else.
///
///     struct Writeable : DescribedInterface<Writeable> {
///       static constexpr FixedString FullName = "Writeable";
///       static constexpr std::size_t OperationCount = 3;
///     };
template <class Self>
struct DescribedInterface {
  static inline ClassRecord* __ctbl = nullptr;

  static ClassRecord* __Lookup() {
    if (__ctbl == nullptr) __ctblinit();
    return __ctbl;
  }

  static void __ctblinit() {
    RuntimeStackCheck();
    if (__ctbl != nullptr) return;
    __ctbl = RuntimeNewClass(nullptr);
    __ctbl->name = StringConstant(&ConstantString<Self::FullName, Encoding::UTF8>::record);
    __ctbl->isInterface = true;
  }
};

}  // namespace veldrin
