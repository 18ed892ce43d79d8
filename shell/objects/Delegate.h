#pragma once

#include "shell/objects/Described.h"

namespace veldrin {

/// A callable: a function without parameters or result, and the object that it is bound to, or nil.
class Delegate final : public Described<Delegate, Object> {
 public:
  static constexpr FixedString FullName = "Delegate";
  static void fillTable(ClassTable<Delegate>& table);

  /// How a delegate calls its target: `Invoke` or `IM_Invoke`.
  using Invoking = void (Delegate::*)();

  /// Calls the target without arguments. Raises `FunctionNotFoundException` where there is none,
  /// `TypeMismatchException` for a delegate that was made for the other way of calling, and
  /// `StackOverflowException` where delegates call each other without end; so does the other.
  void Invoke();
  /// Calls the target with the bound object as its one argument.
  void IM_Invoke();
  /// Calls the target in the way that the delegate was made for.
  void call() { (this->*invoking_)(); }

  /// The target function, a `void (*)()` or a `void (*)(Object*)` by the way of calling.
  [[nodiscard]] Function target() const { return target_; }

 private:
  friend Ref<Delegate> RuntimeCreateDelegate(Invoking invoker, Function target,
                                             const Ref<Object>& boundObject,
                                             const String& signature);

  void require(Invoking invoking) const;

  Invoking invoking_ = &Delegate::Invoke;
  Function target_ = nullptr;
  Ref<Object> boundObject_;
};

/// A delegate of the target. Every delegate of the program has the signature "(  )"; any other
/// raises `UnsupportedFormatException`.
Ref<Delegate> RuntimeCreateDelegate(Delegate::Invoking invoker, Function target,
                                    const Ref<Object>& boundObject, const String& signature);

/// The signature of a function without parameters or result, as delegates write it.
inline constexpr StringConstant DelegateSignature = "(  )"_ascii;

}  // namespace veldrin
