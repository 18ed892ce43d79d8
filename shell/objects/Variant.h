#pragma once

#include <bit>
#include <cmath>
#include <concepts>
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

/// A value of any type that has a type code. Arrays and objects are counted references; a nil
/// reference becomes a nil variant, which holds no value. An enumeration becomes its number.
class Variant {
 public:
  using Storage =
      std::variant<std::monostate, bool, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                   std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, float, double,
                   Currency, Color, String, void*, Ref<Object>>;

  Variant() = default;
  template <class T>
  requires detail::IsAlternative<T, Storage>
  // NOLINTNEXTLINE(google-explicit-constructor): every value converts implicitly.
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

  /// Zero and an empty text are values, not nil.
  [[nodiscard]] bool isNil() const { return std::holds_alternative<std::monostate>(storage_); }
  /// For `std::visit`.
  [[nodiscard]] const Storage& storage() const { return storage_; }

  /// The held object, uncounted; nil if the variant holds none.
  [[nodiscard]] Object* object() const {
    const auto* const held = std::get_if<Ref<Object>>(&storage_);
    return held == nullptr ? nullptr : held->get();
  }

  /// Values of different types differ, even equal numbers.
  bool operator==(const Variant& other) const { return storage_ == other.storage_; }

 private:
  Storage storage_;
};

/// The arguments of a call; the call updates by-reference arguments.
using VariantArray = std::vector<Variant>;

namespace detail {

template <class T>
concept Number = std::is_arithmetic_v<T> && !std::same_as<T, bool>;

/// Whether `To` holds the value without loss. A floating-point type also holds NaN and infinities;
/// an integer type holds none of them, nor -0.0. `bits` is sign-extended on purpose.
template <Number To, Number From>
bool holds(From value) {
  if constexpr (std::integral<To> && std::integral<From>) {
    return std::in_range<To>(value);
  } else if constexpr (std::integral<From>) {
    const auto bits = static_cast<std::uint64_t>(value);  // NOLINT(bugprone-signed-char-misuse)
    const std::uint64_t magnitude = value < 0 ? 0 - bits : bits;
    const int width = static_cast<int>(std::bit_width(magnitude));
    return magnitude == 0 || width - std::countr_zero(magnitude) <= std::numeric_limits<To>::digits;
  } else if constexpr (std::integral<To>) {
    // The bounds are 0 or powers of two, so they are exact in `float` and `double`.
    const From end = std::ldexp(From{1}, std::numeric_limits<To>::digits);
    const From least = std::is_signed_v<To> ? -end : From{0};
    return value >= least && value < end && std::trunc(value) == value &&
           !(value == From{0} && std::signbit(value));
  } else {
    if (!std::isfinite(value)) return true;
    return std::abs(value) <= std::numeric_limits<To>::max() && static_cast<To>(value) == value;
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
          if constexpr (Number<Held>) {
            if (holds<T>(held)) return static_cast<T>(held);
          }
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

/// These types do not convert from others, except that nil becomes an empty text or null pointer.
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

/// Converts to `T`. A number converts to each numeric or enumeration type that holds it without
/// loss; nil converts to a nil reference, null pointer or empty text. Any other value must already
/// be a `T`. Raises `IllegalCastException` if `T` refers to a class and the object is not of that
/// class, and `TypeMismatchException` for other mismatches.
template <class T>
T fromVariant(const Variant& value) {
  return detail::FromVariant<T>::convert(value);
}

}  // namespace veldrin
