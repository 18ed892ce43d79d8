#pragma once

#include <utility>

namespace veldrin {

/// A property that a toolkit may have to show: a write tells the object that has it, in C++ as by
/// description. `Owner` has a `changed()` for that, which is called once the new value stands.
///
///     template <class T>
///     using Live = LiveProperty<Control, T>;
///     Live<bool> Enabled{*this, true};
///
///     if (!button->Enabled()) button->Enabled(true);
///
/// In the table of the class it is a row like any other: `property<&RectControl::Enabled>`.
template <class Owner, class T>
class LiveProperty {
 public:
  using Type = T;

  explicit LiveProperty(Owner& owner, T value = T()) : owner_(owner), value_(std::move(value)) {}
  LiveProperty(const LiveProperty&) = delete;
  LiveProperty& operator=(const LiveProperty&) = delete;

  [[nodiscard]] T operator()() const { return value_; }

  /// Writes the property. The same value again is nothing that anybody has to be told.
  void operator()(T value) {
    std::swap(value_, value);
    if (!(value_ == value)) owner_.changed();
  }

  /// Takes over what the toolkit shows already, and tells nobody.
  void keep(T shown) { value_ = std::move(shown); }

 private:
  Owner& owner_;
  T value_;
};

}  // namespace veldrin
