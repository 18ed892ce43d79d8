#pragma once

#include <utility>

namespace veldrin {

/// A property that reports changes: a write that changes the value calls `Owner::changed()`, which
/// tells the toolkit.
///
///     template <class T>
///     using Live = LiveProperty<Control, T>;
///     Live<bool> Enabled{*this, true};
///
///     if (!button->Enabled()) button->Enabled(true);
///
/// The class table lists it like any other property: `property<&RectControl::Enabled>`.
template <class Owner, class T>
class LiveProperty {
 public:
  using Type = T;

  explicit LiveProperty(Owner& owner, T value = T()) : owner_(owner), value_(std::move(value)) {}
  LiveProperty(const LiveProperty&) = delete;
  LiveProperty& operator=(const LiveProperty&) = delete;

  [[nodiscard]] T operator()() const { return value_; }

  /// Writes the property; calls `changed()` only if the value differs.
  void operator()(T value) {
    std::swap(value_, value);
    if (!(value_ == value)) owner_.changed();
  }

  /// Writes a value that the toolkit already shows, without calling `changed()`.
  void setShown(T shown) { value_ = std::move(shown); }

 private:
  Owner& owner_;
  T value_;
};

}  // namespace veldrin
