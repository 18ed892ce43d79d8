#pragma once

#include <QCoreApplication>
#include <QThread>
#include <exception>
#include <utility>

#include "shell/objects/ScopedFlag.h"
#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// Delivers user input to the controls. Exceptions must not pass through stack frames of Qt. If
/// a handler throws, this class stores the exception and ends the event loop, if one is running.
/// `raiseAgain()` throws the exception after the loop.
class Delivery {
 public:
  /// Calls `act` unless another act is running, delivery is suspended, an exception is stored or no
  /// session is in force.
  template <class Act>
  void deliver(Act&& act) {
    if (isHeld_ || raised_ || !InForce<Session>::exists()) return;
    const ScopedFlag held(isHeld_);
    runStoringException(std::forward<Act>(act));
  }

  /// Calls `deliver(act)` if the control is in a window: a removed control may still have a widget.
  template <class Act>
  void deliver(const Control& control, Act&& act) {
    if (control.Window()) deliver(std::forward<Act>(act));
  }

  /// Calls `act` in any state. Use it directly only for acts without a handler, such as storing
  /// typed text.
  template <class Act>
  void runStoringException(Act&& act) {
    try {
      act();
    } catch (...) {
      raised_ = std::current_exception();
      // Not quit(): it asks the windows first. If no loop runs, exit() would end the next dialog.
      if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit();
    }
  }

  /// Suspends delivery during the lifetime of the result.
  [[nodiscard]] ScopedFlag hold() { return ScopedFlag(isHeld_); }
  [[nodiscard]] bool isHeld() const { return isHeld_; }

  /// Whether an exception is stored.
  [[nodiscard]] bool hasFailed() const { return raised_ != nullptr; }

  /// Throws the stored exception, if there is one.
  void raiseAgain() {
    if (raised_) std::rethrow_exception(std::exchange(raised_, nullptr));
  }

 private:
  bool isHeld_ = false;
  std::exception_ptr raised_;
};

}  // namespace veldrin
