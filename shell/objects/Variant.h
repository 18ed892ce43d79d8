#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "shell/objects/Array.h"
#include "shell/objects/Color.h"
#include "shell/objects/Currency.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"

namespace veldrin {

namespace detail {
template <class T, class Storage>
inline constexpr bool IsAlternative = false;
template <class T, class... Alternatives>
inline constexpr bool IsAlternative<T, std::variant<Alternatives...>> =
    (std::same_as<T, Alternatives> || ...);
}  // namespace detail

/// A value of any type that has a type code. Arrays and objects are held by a counted reference;
/// nil stands for no value and for a nil reference alike. An enumeration is held as its number.
class Variant {
 public:
  using Storage =
      std::variant<std::monostate, bool, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                   std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, float, double,
                   Currency, Color, String, void*, Ref<Object>>;

  Variant() = default;
  template <class T>
  requires detail::IsAlternative<T, Storage>
  // NOLINTNEXTLINE(google-explicit-constructor): every value is a variant.
  Variant(T value) : storage_(std::in_place_type<T>, std::move(value)) {}
  template <std::derived_from<Object> T>
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  Variant(Ref<T> object) {
    if (object) storage_.template emplace<Ref<Object>>(std::move(object));
  }
  template <class E>
  requires std::is_enum_v<E>
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  Variant(E value) : storage_(static_cast<std::underlying_type_t<E>>(value)) {}
  // NOLINTNEXTLINE(google-explicit-constructor): as above.
  Variant(StringConstant text) : storage_(String(text)) {}

  /// Whether it holds no value at all; a zero and an empty text are values.
  [[nodiscard]] bool isNil() const { return std::holds_alternative<std::monostate>(storage_); }
  /// What it holds, for `std::visit`.
  [[nodiscard]] const Storage& storage() const { return storage_; }

  /// The held object, uncounted; nil where no object is held.
  [[nodiscard]] Object* object() const {
    const auto* const held = std::get_if<Ref<Object>>(&storage_);
    return held == nullptr ? nullptr : held->get();
  }

  /// Equal are two values of one type; numbers of different types differ.
  bool operator==(const Variant& other) const { return storage_ == other.storage_; }

 private:
  Storage storage_;
};

/// The arguments of an invocation, which come back changed where a parameter is by reference.
using VariantArray = std::vector<Variant>;

/// What a dictionary tells keys apart by.
struct VariantHash {
  std::size_t operator()(const Variant& value) const;
};

namespace detail {

template <class T>
concept Number = std::is_arithmetic_v<T> && !std::same_as<T, bool>;

/// The number, if the type `To` holds it without loss: any integer that fits, a single as a
/// double, an integer as a real that has it exactly. A real is never made an integer.
template <Number To, Number From>
std::optional<To> widened(From value) {
  if constexpr (std::integral<To> && std::integral<From>) {
    if (!std::in_range<To>(value)) return std::nullopt;
    return static_cast<To>(value);
  } else if constexpr (std::integral<From>) {
    // Beyond the digits of the mantissa only some integers are held; none of them is needed.
    constexpr std::int64_t Exact = std::int64_t{1} << std::numeric_limits<To>::digits;
    if (std::cmp_greater(value, Exact) || std::cmp_less(value, -Exact)) return std::nullopt;
    return static_cast<To>(value);
  } else if constexpr (std::integral<To> || sizeof(To) < sizeof(From)) {
    return std::nullopt;
  } else {
    return static_cast<To>(value);
  }
}

[[noreturn]] void raiseTypeMismatch();
Ref<Object> castVariant(const Variant& value, ClassRecord* record);

template <class T>
struct FromVariant;

template <Number T>
struct FromVariant<T> {
  static T convert(const Variant& value) {
    const auto number = std::visit(
        [](const auto& held) -> std::optional<T> {
          using Held = std::remove_cvref_t<decltype(held)>;
          if constexpr (Number<Held>) return widened<T>(held);
          return std::nullopt;
        },
        value.storage());
    if (!number) raiseTypeMismatch();
    return *number;
  }
};

template <class T>
requires std::is_enum_v<T>
struct FromVariant<T> {
  static T convert(const Variant& value) {
    return static_cast<T>(FromVariant<std::underlying_type_t<T>>::convert(value));
  }
};

/// The types that only their own values become; nil is the empty value where there is one.
template <class T>
requires(std::same_as<T, bool> || std::same_as<T, Currency> || std::same_as<T, Color> ||
         std::same_as<T, String> || std::same_as<T, void*>) struct FromVariant<T> {
  static T convert(const Variant& value) {
    constexpr bool Nullable = std::same_as<T, String> || std::same_as<T, void*>;
    if constexpr (Nullable) {
      if (value.isNil()) return T{};
    }
    const T* const held = std::get_if<T>(&value.storage());
    if (held == nullptr) raiseTypeMismatch();
    return *held;
  }
};

template <class T>
requires(std::is_pointer_v<T> && !std::same_as<T, void*>) struct FromVariant<T> {
  static T convert(const Variant& value) {
    return static_cast<T>(FromVariant<void*>::convert(value));
  }
};

template <>
struct FromVariant<Variant> {
  static Variant convert(const Variant& value) { return value; }
};

template <class T>
struct FromVariant<Ref<T>> {
  static Ref<T> convert(const Variant& value) {
    return Ref<T>::adopt(static_cast<T*>(castVariant(value, T::__Lookup()).release()));
  }
};

template <>
struct FromVariant<Ref<Object>> {
  static Ref<Object> convert(const Variant& value) { return castVariant(value, nullptr); }
};

template <class T>
struct FromVariant<Ref<Array<T>>> {
  static Ref<Array<T>> convert(const Variant& value) {
    if (value.isNil()) return nullptr;
    auto* const array = dynamic_cast<Array<T>*>(value.object());
    if (array == nullptr) raiseTypeMismatch();
    return Ref<Array<T>>(array);
  }
};

}  // namespace detail

/// The value as a `T`. A number becomes any number type that holds it without loss, nil becomes a
/// nil reference or an empty text, and everything else only what it is. Raises
/// `IllegalCastException` for an object of another class, `TypeMismatchException` otherwise.
template <class T>
T fromVariant(const Variant& value) {
  return detail::FromVariant<T>::convert(value);
}

}  // namespace veldrin
