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

/// How an argument is passed: as is if a reference or trivially copyable, else by const reference.
template <class T>
using Passed =
    std::conditional_t<std::is_reference_v<T> || std::is_trivially_copyable_v<T>, T, const T&>;

[[noreturn]] void raiseOutOfBounds();

}  // namespace detail

/// The function types and the thunks of all methods with one signature. `Result` and `Parameters`
/// are `detail::Plain` types.
template <class Result, class... Parameters>
struct MethodShape {
  /// `Call` is the function of a method, `SharedCall` of a shared method.
  using Call = Result (*)(Object* object, detail::Passed<Parameters>... arguments);
  using SharedCall = Result (*)(detail::Passed<Parameters>... arguments);

  /// As stored in rows, without the object: "%i4%s" for a text parameter and an integer result.
  static constexpr StringConstant signature() { return signatureOf<Result, Parameters...>(); }

  /// An `Invoker` for methods.
  static Variant Invoke(Function function, Object* object, VariantArray* arguments) {
    if (object == nullptr) RaiseNilObjectException();
    return apply(arguments, [&](auto&... values) -> Result {
      return reinterpret_cast<Call>(function)(object, values...);
    });
  }

  /// An `Invoker` for shared methods.
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
    // Braced initialisation converts the arguments from first to last, all before the call.
    [[maybe_unused]] std::tuple<std::remove_reference_t<Parameters>...> values{
        fromVariant<std::remove_reference_t<Parameters>>(arguments[Index])...};
    if constexpr (std::is_void_v<Result>) {
      calling(std::get<Index>(values)...);
      (writeBack<Parameters>(arguments, Index, std::get<Index>(values)), ...);
      return {};
    } else {
      Variant result(calling(std::get<Index>(values)...));
      (writeBack<Parameters>(arguments, Index, std::get<Index>(values)), ...);
      return result;
    }
  }

  template <class Parameter, class Value>
  static void writeBack(VariantArray& arguments, std::size_t index, Value& value) {
    // The called method may have shortened the array.
    if constexpr (std::is_reference_v<Parameter>) {
      if (index < arguments.size()) arguments[index] = Variant(std::move(value));
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

  /// The method as a function with the object as its first parameter. Events, virtual tables and
  /// reflection call it. It checks the stack, so that methods need not.
  template <auto Method>
  static Plain<Result> call(Object* object, Passed<Plain<Parameters>>... arguments) {
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

/// A function that takes the object as its first parameter.
template <class Result, class... Parameters>
struct Member<Result (*)(Object*, Parameters...)> {
  using Declaring = Object;
  using Shape = MethodShape<Plain<Result>, Plain<Parameters>...>;

  template <auto Method>
  static Plain<Result> call(Object* object, Passed<Plain<Parameters>>... arguments) {
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
  static Plain<Result> call(Passed<Plain<Parameters>>... arguments) {
    RuntimeStackCheck();
    return Method(arguments...);
  }
};

}  // namespace detail

/// The type-erased function of a method, with the object as its first parameter.
template <auto Method>
Function functionOf() {
  return reinterpret_cast<Function>(&detail::Member<decltype(Method)>::template call<Method>);
}

template <auto Method>
using ShapeOf = typename detail::Member<decltype(Method)>::Shape;

/// The same for a shared method, without the object parameter.
template <auto Method>
Function sharedFunctionOf() {
  return reinterpret_cast<Function>(
      &detail::SharedFunction<decltype(Method)>::template call<Method>);
}
template <auto Method>
using SharedShapeOf = typename detail::SharedFunction<decltype(Method)>::Shape;

}  // namespace veldrin
