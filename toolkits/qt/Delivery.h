#pragma once

#include <QCoreApplication>
#include <QThread>
#include <exception>
#include <utility>

#include "shell/objects/ScopedFlag.h"
#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// Delivers user input to the controls. Exceptions must not pass through stack frames of Qt. So
/// this class stores an exception that leaves a handler and ends the event loop, if it runs.
/// `raiseAgain()` throws the exception after the loop.
class Delivery {
 public:
  /// Calls `act` unless another handler is running, a handler has failed, or the runtime is gone.
  template <class Act>
  void deliver(Act&& act) {
    if (isHeld_ || raised_ || !InForce<Session>::exists()) return;
    const ScopedFlag held(isHeld_);
    runStoringException(std::forward<Act>(act));
  }

  /// The same for an act on a control; does nothing if the control has left its window. Its widget
  /// may exist a little longer.
  template <class Act>
  void deliver(const Control& control, Act&& act) {
    if (control.Window()) deliver(std::forward<Act>(act));
  }

  /// Calls `act` at any time; for acts that run no handler, such as storing a typed text.
  template <class Act>
  void runStoringException(Act&& act) {
    try {
      act();
    } catch (...) {
      raised_ = std::current_exception();
      // Not quit(), which would ask the windows first. Without a loop, exit() would end the next
      // dialog.
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
