#pragma once

#include <cstddef>
#include <span>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/MethodShape.h"

namespace veldrin {

/// An event that a class declares: its name, and what its handler takes behind the object and gives
/// back. A class lists its events as constants, declares them in its table, and raises them:
///
///     struct Events {
///       static constexpr Event<bool(bool)> CancelClose{"CancelClose"_s};
///     };
///     table.event(Events::CancelClose);
///     const bool refused = callHandler(*this, Events::CancelClose, quitting);
///
/// A method that does not fit its event does not compile where the table binds it.
template <class Signature>
class Event;

template <class Result, class... Parameters>
class Event<Result(Parameters...)> {
 public:
  /// What handlers take and give.
  using Shape = MethodShape<Result, Parameters...>;
  /// What a handler is: a bare function with the object as its first argument.
  using Handler = typename Shape::Call;

  constexpr explicit Event(StringConstant name) : name_(name) {}
  /// By which a class declares and binds it.
  [[nodiscard]] constexpr StringConstant name() const { return name_; }
  /// As a class record keeps it, without the object.
  [[nodiscard]] static constexpr StringConstant signature() { return Shape::signature(); }

 private:
  StringConstant name_;
};

/// The index of an event of that name and signature in the class. Raises `KeyNotFoundException`
/// where the class has no such event, and `TypeMismatchException` where its handlers take or give
/// something else.
std::size_t RequireEvent(const ClassRecord& record, const String& name, const String& signature);

namespace detail {
/// The handler of the event: the object's own, else that of its class, else nil.
Function handlerOf(const Object& object, const String& name, const String& signature,
                   std::span<const Function> own);
}  // namespace detail

/// Calls the handler of the event with that name and signature; this is the one place where one is
/// found and called. `own` are the handlers that the object has besides those of its class, by the
/// index of the event; nil leaves the event to the class. Without a handler the result is empty,
/// which is false for a boolean. The object lives until the handler has run to its end. Raises what
/// `RequireEvent` raises, and `StackOverflowException` where handlers raise each other's events
/// without end.
template <class Result, class... Parameters>
Result callHandler(Object& object, const String& name, std::span<const Function> own,
                   detail::Handed<Parameters>... arguments) {
  RuntimeStackCheck();
  const Ref<Object> held(&object);
  using Called = Event<Result(Parameters...)>;
  const Function handler = detail::handlerOf(object, name, Called::signature(), own);
  if (handler == nullptr) return Result();
  return reinterpret_cast<typename Called::Handler>(handler)(&object, arguments...);
}

/// The same by the constant of the event, for an object that has no handlers of its own.
template <class Result, class... Parameters>
Result callHandler(Object& object, const Event<Result(Parameters...)>& event,
                   detail::Handed<Parameters>... arguments) {
  return callHandler<Result, Parameters...>(object, event.name(), {}, arguments...);
}

}  // namespace veldrin
