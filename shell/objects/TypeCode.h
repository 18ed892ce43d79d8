#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "shell/objects/Array.h"
#include "shell/objects/Color.h"
#include "shell/objects/Currency.h"
#include "shell/objects/FixedString.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"

namespace veldrin {

class Variant;

/// The full name of an enumeration. Specialise it for each enumeration used in a class table.
template <class E>
inline constexpr int EnumFullName = 0;

/// The type code of a C++ type: `TypeCode<double>::code` is "f8". A type without a code does not
/// compile.
template <class T>
struct TypeCode;

namespace detail {
template <FixedString Code>
struct Coded {
  static constexpr auto code = Code;
};
}  // namespace detail

template <>
struct TypeCode<bool> : detail::Coded<"b"> {};
template <>
struct TypeCode<std::int8_t> : detail::Coded<"i1"> {};
template <>
struct TypeCode<std::int16_t> : detail::Coded<"i2"> {};
template <>
struct TypeCode<std::int32_t> : detail::Coded<"i4"> {};
template <>
struct TypeCode<std::int64_t> : detail::Coded<"i8"> {};
template <>
struct TypeCode<std::uint8_t> : detail::Coded<"u1"> {};
template <>
struct TypeCode<std::uint16_t> : detail::Coded<"u2"> {};
template <>
struct TypeCode<std::uint32_t> : detail::Coded<"u4"> {};
template <>
struct TypeCode<std::uint64_t> : detail::Coded<"u8"> {};
template <>
struct TypeCode<float> : detail::Coded<"f4"> {};
template <>
struct TypeCode<double> : detail::Coded<"f8"> {};
template <>
struct TypeCode<Currency> : detail::Coded<"e"> {};
template <>
struct TypeCode<Color> : detail::Coded<"c"> {};
template <>
struct TypeCode<String> : detail::Coded<"s"> {};
template <>
struct TypeCode<Variant> : detail::Coded<"v"> {};
template <>
struct TypeCode<void*> : detail::Coded<"p"> {};
template <class T>
struct TypeCode<T*> : TypeCode<void*> {};
template <>
struct TypeCode<Ref<Object>> : detail::Coded<"o<Object>"> {};

template <class T>
struct TypeCode<Ref<T>> {
  static constexpr auto code = FixedString("o<") + T::FullName + FixedString(">");
};

template <class T>
struct TypeCode<Ref<Array<T>>> {
  static constexpr auto code = FixedString("A1") + TypeCode<T>::code;
};

/// An array of arrays has no code: `takeParameter` would split the code into two parameters.
template <class T>
struct TypeCode<Ref<Array<Ref<Array<T>>>>>;

template <class E>
requires std::is_enum_v<E>
struct TypeCode<E> {
  static constexpr auto code = TypeCode<std::underlying_type_t<E>>::code + FixedString("<") +
                               EnumFullName<E> + FixedString(">");
};

namespace detail {

/// A parameter or result type as in a signature. A non-const lvalue reference stays; any other type
/// becomes a value type.
template <class T>
using Plain = std::conditional_t<std::is_lvalue_reference_v<T> &&
                                     !std::is_const_v<std::remove_reference_t<T>>,
                                 T, std::remove_cvref_t<T>>;

template <class T>
constexpr auto parameterCode() {
  if constexpr (std::is_reference_v<T>) {
    return FixedString("&") + TypeCode<std::remove_reference_t<T>>::code;
  } else {
    return TypeCode<T>::code;
  }
}

template <class T>
constexpr auto resultCode() {
  if constexpr (std::is_void_v<T>) {
    return FixedString("");
  } else {
    return TypeCode<T>::code;
  }
}

/// Whether all codes are of signed integers or floating-point types, and there is at least one.
constexpr bool holdsOnlyNumbers(std::string_view signature) {
  return signature.find_first_not_of("%&if0123456789") == std::string_view::npos &&
         signature.find_first_of("if") != std::string_view::npos;
}

}  // namespace detail

/// The signature of a method with these `Plain` types, such as "%f8%i4i4i4f8".
template <class Result, class... Parameters>
inline constexpr auto SignatureText = ((FixedString("%") + detail::resultCode<Result>() +
                                        FixedString("%")) +
                                       ... + detail::parameterCode<Parameters>());

/// The signature text as a constant: in ASCII if `holdsOnlyNumbers`, else in UTF-8.
template <class Result, class... Parameters>
constexpr StringConstant signatureOf() {
  constexpr auto Text = SignatureText<Result, Parameters...>;
  constexpr std::uint32_t Word =
      detail::holdsOnlyNumbers(Text.view()) ? Encoding::ASCII : Encoding::UTF8;
  return ConstantText<Text, Word>;
}

template <class T>
constexpr StringConstant typeCodeOf() {
  return ConstantText<TypeCode<T>::code>;
}

}  // namespace veldrin
