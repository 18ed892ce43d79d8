#pragma once

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/Stack.h"
#include "shell/objects/TypeCode.h"

namespace veldrin {

namespace detail {

/// How a plain type is handed to a function: what is cheap to copy by value, the rest by reference.
template <class T>
using Handed =
    std::conditional_t<std::is_reference_v<T> || std::is_trivially_copyable_v<T>, T, const T&>;

[[noreturn]] void raiseOutOfBounds();

}  // namespace detail

/// All methods of one signature: the type that their functions have once the object is an argument,
/// and the one thunk that calls them. `Result` and `Parameters` are plain types.
template <class Result, class... Parameters>
struct MethodShape {
  /// The function of a method, and that of a shared one.
  using Call = Result (*)(Object* object, detail::Handed<Parameters>... arguments);
  using SharedCall = Result (*)(detail::Handed<Parameters>... arguments);

  /// As rows and delegates keep it, without the object: "%i4%s" takes a text and gives an integer.
  static constexpr StringConstant signature() { return signatureOf<Result, Parameters...>(); }

  /// `Introspection.Invoke` of this signature.
  static Variant Invoke(Function function, Object* object, VariantArray* arguments) {
    if (object == nullptr) RaiseNilObjectException();
    return apply(arguments, [&](auto&... values) -> Result {
      return reinterpret_cast<Call>(function)(object, values...);
    });
  }

  /// `Introspection.InvokeShared` of this signature.
  static Variant InvokeShared(Function function, Object* /*object*/, VariantArray* arguments) {
    return apply(arguments, [&](auto&... values) -> Result {
      return reinterpret_cast<SharedCall>(function)(values...);
    });
  }

 private:
  template <class Calling>
  static Variant apply(VariantArray* arguments, const Calling& calling) {
    if (arguments == nullptr) RaiseNilObjectException();
    if (arguments->size() != sizeof...(Parameters)) detail::raiseOutOfBounds();
    return applyInOrder(*arguments, calling, std::index_sequence_for<Parameters...>());
  }

  template <class Calling, std::size_t... Index>
  static Variant applyInOrder(VariantArray& arguments, const Calling& calling,
                              std::index_sequence<Index...> /*order*/) {
    // The braces convert from the first to the last, all of them before the call.
    [[maybe_unused]] std::tuple<std::remove_reference_t<Parameters>...> values{
        fromVariant<std::remove_reference_t<Parameters>>(arguments[Index])...};
    if constexpr (std::is_void_v<Result>) {
      calling(std::get<Index>(values)...);
      (giveBack<Parameters>(arguments, Index, std::get<Index>(values)), ...);
      return {};
    } else {
      Variant result(calling(std::get<Index>(values)...));
      (giveBack<Parameters>(arguments, Index, std::get<Index>(values)), ...);
      return result;
    }
  }

  template <class Parameter, class Value>
  static void giveBack(VariantArray& arguments, std::size_t place, Value& value) {
    // What was called may have changed the array itself.
    if constexpr (std::is_reference_v<Parameter>) {
      if (place < arguments.size()) arguments[place] = Variant(std::move(value));
    }
  }
};

namespace detail {

template <class T>
struct Member;

template <class Class, class Result, class... Parameters>
struct Member<Result (Class::*)(Parameters...)> {
  using Declaring = Class;
  using Shape = MethodShape<Plain<Result>, Plain<Parameters>...>;

  /// The member as a function with the object as its first argument. Every call of a method through
  /// a table comes by here: as a handler, a delegate's target, a virtual operation or by
  /// description. So this is where the stack is checked, and no method's body has to.
  template <auto Method>
  static Plain<Result> call(Object* object, Handed<Plain<Parameters>>... arguments) {
    RuntimeStackCheck();
    return (static_cast<Class&>(*object).*Method)(arguments...);
  }
};

template <class Class, class Result, class... Parameters>
struct Member<Result (Class::*)(Parameters...) const> : Member<Result (Class::*)(Parameters...)> {};

template <class Class, class Result, class... Parameters>
struct Member<Result (Class::*)(Parameters...) noexcept>
    : Member<Result (Class::*)(Parameters...)> {};

template <class Class, class Result, class... Parameters>
struct Member<Result (Class::*)(Parameters...) const noexcept>
    : Member<Result (Class::*)(Parameters...)> {};

/// A function that takes the object as its first argument already.
template <class Result, class... Parameters>
struct Member<Result (*)(Object*, Parameters...)> {
  using Declaring = Object;
  using Shape = MethodShape<Plain<Result>, Plain<Parameters>...>;

  template <auto Method>
  static Plain<Result> call(Object* object, Handed<Plain<Parameters>>... arguments) {
    RuntimeStackCheck();
    return Method(object, arguments...);
  }
};

template <class T>
struct SharedFunction;

template <class Result, class... Parameters>
struct SharedFunction<Result (*)(Parameters...)> {
  using Shape = MethodShape<Plain<Result>, Plain<Parameters>...>;

  template <auto Method>
  static Plain<Result> call(Handed<Plain<Parameters>>... arguments) {
    RuntimeStackCheck();
    return Method(arguments...);
  }
};

}  // namespace detail

/// The function of a method, with the object as its first argument, without its type. It is the
/// same for the same method wherever it stands.
template <auto Method>
Function functionOf() {
  return reinterpret_cast<Function>(&detail::Member<decltype(Method)>::template call<Method>);
}

/// The shape of a method.
template <auto Method>
using ShapeOf = typename detail::Member<decltype(Method)>::Shape;

/// The function of a shared method, which has no object, and its shape.
template <auto Method>
Function sharedFunctionOf() {
  return reinterpret_cast<Function>(
      &detail::SharedFunction<decltype(Method)>::template call<Method>);
}
template <auto Method>
using SharedShapeOf = typename detail::SharedFunction<decltype(Method)>::Shape;

}  // namespace veldrin
