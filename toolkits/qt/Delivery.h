#pragma once

#include <QCoreApplication>
#include <exception>
#include <utility>

#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// Delivers user input to the controls. Exceptions must not pass through stack frames of Qt. So
/// this class stores an exception that leaves a handler and ends the event loop; `raiseAgain()`
/// throws it after the loop.
class Delivery {
 public:
  /// Calls `act` unless another handler is running, a handler has failed, or the runtime is gone.
  template <class Act>
  void deliver(Act&& act) {
    if (isHeld_ || raised_ || !InForce<Session>::exists()) return;
    const Hold hold(*this);
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
      QCoreApplication::exit();  // quit() would ask the windows first
    }
  }

  /// Suspends delivery during its lifetime.
  class Hold {
   public:
    explicit Hold(Delivery& delivery)
        : delivery_(delivery), wasHeld_(std::exchange(delivery.isHeld_, true)) {}
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { delivery_.isHeld_ = wasHeld_; }

   private:
    Delivery& delivery_;
    bool wasHeld_;
  };

  [[nodiscard]] bool isHeld() const { return isHeld_; }

  /// Throws the stored exception, if there is one.
  void raiseAgain() {
    if (raised_) std::rethrow_exception(std::exchange(raised_, nullptr));
  }

 private:
  bool isHeld_ = false;
  std::exception_ptr raised_;
};

}  // namespace veldrin
