#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

#include "shell/objects/Object.h"

namespace veldrin {

[[noreturn]] void RaiseNilObjectException();

/// A counted reference to an object, or nil. Dereferencing nil raises `NilObjectException`.
///
///     Ref<Date> day = New<Date>();
///     day->Month(1);
template <class T>
class Ref {
 public:
  Ref() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): nil is a value of every reference.
  Ref(std::nullptr_t) {}
  /// Increments the count of the object.
  explicit Ref(T* object) noexcept : object_(object) { RuntimeLockObject(object); }
  /// Takes over a count that the caller owns, without adding one.
  [[nodiscard]] static Ref adopt(T* object) noexcept {
    Ref taken;
    taken.object_ = object;
    return taken;
  }

  Ref(const Ref& other) noexcept : object_(other.object_) { RuntimeLockObject(object_); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <std::derived_from<T> U>
  // NOLINTNEXTLINE(google-explicit-constructor): converts to a base.
  Ref(Ref<U> other) noexcept : object_(other.release()) {}
  Ref& operator=(const Ref& other) noexcept {
    T* const old = std::exchange(object_, other.object_);
    RuntimeLockUnlockObjects(object_, old);
    return *this;
  }
  Ref& operator=(Ref&& other) noexcept {
    T* const old = std::exchange(object_, std::exchange(other.object_, nullptr));
    RuntimeUnlockObject(old);
    return *this;
  }
  ~Ref() { RuntimeUnlockObject(object_); }

  T* operator->() const { return &**this; }
  T& operator*() const {
    if (object_ == nullptr) RaiseNilObjectException();
    return *object_;
  }
  explicit operator bool() const { return object_ != nullptr; }
  [[nodiscard]] T* get() const { return object_; }
  /// Transfers the count to the caller and becomes nil.
  [[nodiscard]] T* release() noexcept { return std::exchange(object_, nullptr); }

  template <class U>
  bool operator==(const Ref<U>& other) const {
    return object_ == other.get();
  }
  bool operator==(std::nullptr_t) const { return object_ == nullptr; }

 private:
  T* object_ = nullptr;
};

}  // namespace veldrin
