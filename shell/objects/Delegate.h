#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// A function without a result, and the object it is bound to (or nil).
class Delegate final : public Described<Delegate, Object> {
 public:
  static constexpr FixedString FullName = "Delegate";
  static void fillTable(ClassTable<Delegate>& table);

  /// The function that calls the target: `Invoke` or `IM_Invoke`.
  using Invoking = void (Delegate::*)();

  /// Calls the target without arguments. Raises `FunctionNotFoundException` if there is no target,
  /// `TypeMismatchException` if the delegate was created for `IM_Invoke`, and
  /// `StackOverflowException` if delegates call each other endlessly.
  void Invoke();
  /// Calls the target with the bound object as its only argument. Raises the same exceptions;
  /// `TypeMismatchException` if the delegate was created for `Invoke`.
  void IM_Invoke();
  /// Calls the target by `Invoke` or `IM_Invoke`, as chosen at creation.
  void call() { (this->*invoking_)(); }

  /// The target: a `void (*)()` for `Invoke`, a `void (*)(Object*)` for `IM_Invoke`.
  [[nodiscard]] Function target() const { return target_; }

 private:
  friend Ref<Delegate> RuntimeCreateDelegate(Invoking invoking, Function target,
                                             const Ref<Object>& boundObject,
                                             const String& signature);

  void require(Invoking invoking) const;

  Invoking invoking_ = &Delegate::Invoke;
  Function target_ = nullptr;
  Ref<Object> boundObject_;
};

/// Creates a delegate. Raises `UnsupportedFormatException` unless the signature is
/// `DelegateSignature`.
Ref<Delegate> RuntimeCreateDelegate(Delegate::Invoking invoking, Function target,
                                    const Ref<Object>& boundObject, const String& signature);

/// The delegate signature of a function without parameters or result.
inline constexpr StringConstant DelegateSignature = "(  )"_ascii;

}  // namespace veldrin
