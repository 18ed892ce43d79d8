#pragma once

#include <cstddef>
#include <span>

#include "shell/objects/ClassRecord.h"
#include "shell/objects/MethodShape.h"

namespace veldrin {

/// An event: its name and the signature of its handlers, without the object parameter. A class
/// lists its events as constants, declares them in its table, and raises them:
///
///     struct Events {
///       static constexpr Event<bool(bool)> CancelClose{"CancelClose"_s};
///     };
///     table.event(Events::CancelClose);
///     const bool refused = callHandler(*this, Events::CancelClose, quitting);
///
/// Binding a method with another signature in the table does not compile.
template <class Signature>
class Event;

template <class Result, class... Parameters>
class Event<Result(Parameters...)> {
 public:
  using Shape = MethodShape<Result, Parameters...>;
  /// A plain function; the object is its first argument.
  using Handler = typename Shape::Call;

  constexpr explicit Event(StringConstant name) : name_(name) {}
  [[nodiscard]] constexpr StringConstant name() const { return name_; }
  /// As stored in a class record, without the object.
  [[nodiscard]] static constexpr StringConstant signature() { return Shape::signature(); }

 private:
  StringConstant name_;
};

/// The index of the first event of that name in the class. Raises `KeyNotFoundException` if there
/// is none, `TypeMismatchException` if the event has another signature.
std::size_t RequireEvent(const ClassRecord& record, const String& name, const String& signature);

namespace detail {
/// The handler of the event: from `ownHandlers`, else from the class, else nil.
Function handlerOf(const Object& object, const String& name, const String& signature,
                   std::span<const Function> ownHandlers);
}  // namespace detail

/// Raises an event: finds its handler and calls it. Every event is raised through this function.
/// `ownHandlers` holds the handlers of `object` by event index; for a nil or missing entry, the
/// handler of the class is called. Without a handler, returns `Result()`, such as false. Keeps the
/// object alive during the call. Raises the exceptions of `RequireEvent`, and
/// `StackOverflowException` if handlers raise each other's events endlessly.
template <class Result, class... Parameters>
Result callHandler(Object& object, const String& name, std::span<const Function> ownHandlers,
                   detail::Passed<Parameters>... arguments) {
  RuntimeStackCheck();
  const Ref<Object> held(&object);
  using Called = Event<Result(Parameters...)>;
  const Function handler = detail::handlerOf(object, name, Called::signature(), ownHandlers);
  if (handler == nullptr) return Result();
  return reinterpret_cast<typename Called::Handler>(handler)(&object, arguments...);
}

/// The same, with only the handlers of the class.
template <class Result, class... Parameters>
Result callHandler(Object& object, const Event<Result(Parameters...)>& event,
                   detail::Passed<Parameters>... arguments) {
  return callHandler<Result, Parameters...>(object, event.name(), {}, arguments...);
}

}  // namespace veldrin
