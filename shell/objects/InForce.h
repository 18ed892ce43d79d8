#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {

/// Makes an object, such as the host or the toolkit, the current one of type `T` until the end of
/// the scope. Scopes nest: the end of the inner scope restores the outer object.
///
///     const InForce<Host> scope(host);
///     InForce<Host>::get().now();
///
/// `T::Kind` names the type in the error message.
template <class T>
class InForce {
 public:
  /// `object` must outlive the scope.
  explicit InForce(T& object) : previous_(std::exchange(current_, &object)) {}
  InForce(const InForce&) = delete;
  InForce& operator=(const InForce&) = delete;
  ~InForce() { current_ = previous_; }

  /// The current object. Throws `FatalFault` if there is none, which is a bug in Veldrin.
  static T& get() {
    if (current_ == nullptr) fail();
    return *current_;
  }

  /// Whether there is a current object.
  static bool exists() { return current_ != nullptr; }

 private:
  [[noreturn]] static void fail() {
    throw FatalFault("The program uses a " + std::string(std::string_view(T::Kind)) +
                     " before there is one.");
  }

  T* previous_;
  static inline T* current_ = nullptr;
};

}  // namespace veldrin
