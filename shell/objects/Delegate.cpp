#include "shell/objects/Delegate.h"

#include "shell/objects/Failure.h"

namespace veldrin {

void Delegate::fillTable(ClassTable<Delegate>& table) {
  table.method<&Delegate::Invoke>("Invoke"_s);
  table.method<&Delegate::IM_Invoke>("IM_Invoke"_s);
}

void Delegate::require(Invoking invoking) const {
  RuntimeStackCheck();
  if (target_ == nullptr) Raise<FunctionNotFoundException>();
  if (invoking_ != invoking) Raise<TypeMismatchException>();
}

void Delegate::Invoke() {
  require(&Delegate::Invoke);
  const Ref<Delegate> held(this);  // the target may release this delegate
  target_();
}

void Delegate::IM_Invoke() {
  require(&Delegate::IM_Invoke);
  const Ref<Delegate> held(this);  // the target may release this delegate
  reinterpret_cast<void (*)(Object*)>(target_)(boundObject_.get());
}

Ref<Delegate> RuntimeCreateDelegate(Delegate::Invoking invoking, Function target,
                                    const Ref<Object>& boundObject, const String& signature) {
  if (!(signature == DelegateSignature)) Raise<UnsupportedFormatException>();
  Ref<Delegate> delegate = New<Delegate>();
  delegate->invoking_ = invoking;
  delegate->target_ = target;
  delegate->boundObject_ = boundObject;
  return delegate;
}

}  // namespace veldrin
