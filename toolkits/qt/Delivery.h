#pragma once

#include <QCoreApplication>
#include <exception>
#include <utility>

#include "shell/window/Session.h"
#include "shell/window/Window.h"

namespace veldrin {

/// Brings what a person does to the controls. Qt's own frames carry no exception: one that leaves a
/// handler is kept here, ends the event loop, and is raised again behind it.
class Delivery {
 public:
  /// Runs what comes of an act. Nothing runs inside a handler, nor after one that has failed, nor
  /// when the runtime has gone.
  template <class Act>
  void deliver(Act&& act) {
    if (held_ || raised_ || !InForce<Session>::exists()) return;
    const Hold hold(*this);
    guard(std::forward<Act>(act));
  }

  /// The same for an act on a control. One that has left its window hears of nothing more, though
  /// its widget may live a little longer.
  template <class Act>
  void deliver(const Control& control, Act&& act) {
    if (control.Window()) deliver(std::forward<Act>(act));
  }

  /// Runs what may come at any time and calls no handler, such as a note of what was typed.
  template <class Act>
  void guard(Act&& act) {
    try {
      act();
    } catch (...) {
      raised_ = std::current_exception();
      QCoreApplication::exit();  // unlike quit(), it asks no window
    }
  }

  /// Nothing is delivered while one of these lives.
  class Hold {
   public:
    explicit Hold(Delivery& delivery)
        : delivery_(delivery), before_(std::exchange(delivery.held_, true)) {}
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { delivery_.held_ = before_; }

   private:
    Delivery& delivery_;
    bool before_;
  };

  [[nodiscard]] bool isHeld() const { return held_; }

  /// Raises what a handler has raised, if one has.
  void raiseAgain() {
    if (raised_) std::rethrow_exception(std::exchange(raised_, nullptr));
  }

 private:
  bool held_ = false;
  std::exception_ptr raised_;
};

}  // namespace veldrin
