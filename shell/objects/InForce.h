#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {

/// Puts an object in force for as long as this lives: the one host, or the one toolkit, that the
/// operations of its room use. Scopes nest; the inner one counts.
///
///     const InForce<Host> scope(host);
///     InForce<Host>::get().now();
///
/// `T` has the name of its kind in `T::Kind`, for the message.
template <class T>
class InForce {
 public:
  /// `object` must outlive this.
  explicit InForce(T& object) : before_(std::exchange(current_, &object)) {}
  InForce(const InForce&) = delete;
  InForce& operator=(const InForce&) = delete;
  ~InForce() { current_ = before_; }

  /// The object in force. Throws `FatalFault` if there is none, which is a fault of the program.
  static T& get() {
    if (current_ == nullptr) fail();
    return *current_;
  }

  /// Whether an object is in force.
  static bool exists() { return current_ != nullptr; }

 private:
  [[noreturn]] static void fail() {
    throw FatalFault("The program uses a " + std::string(std::string_view(T::Kind)) +
                     " before there is one.");
  }

  T* before_;
  static inline T* current_ = nullptr;
};

}  // namespace veldrin
