#pragma once

#include <cstdint>
#include <stdexcept>

#include "shell/objects/Described.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"

namespace veldrin {

/// The root of the family of exception objects. Whoever raises one sets at most `ErrorNumber`; the
/// words that a person reads come from the report of an exception that nothing caught.
class RuntimeException : public Described<RuntimeException, Object> {
 public:
  static constexpr FixedString FullName = "RuntimeException";
  static void fillTable(ClassTable<RuntimeException>& table);

  /// `RuntimeExceptionInitializer`: no message, no number.
  void __Init() { ErrorNumber = 0; }
  /// `RuntimeExceptionFinalizer`: gives the message up.
  void __Exit() { Message = String(); }

  /// The calls in which it was raised, the innermost first. The frames of a program carry no names
  /// that a person could read, so the array is empty.
  [[nodiscard]] Ref<Array<String>> Stack() const;

  String Message;
  std::int32_t ErrorNumber = 0;  ///< of a failed file operation: the host's `errno`
};

/// A child of the family: told apart by its class alone, it adds nothing.
template <FixedString Name>
class ExceptionOf final : public Described<ExceptionOf<Name>, RuntimeException> {
 public:
  static constexpr FixedString FullName = Name;
};

using NilObjectException = ExceptionOf<"NilObjectException">;
using IllegalCastException = ExceptionOf<"IllegalCastException">;
using IOException = ExceptionOf<"IOException">;
using EndException = ExceptionOf<"EndException">;
using FunctionNotFoundException = ExceptionOf<"FunctionNotFoundException">;
using TypeMismatchException = ExceptionOf<"TypeMismatchException">;
using KeyNotFoundException = ExceptionOf<"KeyNotFoundException">;
using OutOfBoundsException = ExceptionOf<"OutOfBoundsException">;
using OutOfMemoryException = ExceptionOf<"OutOfMemoryException">;
using ServiceNotAvailableException = ExceptionOf<"ServiceNotAvailableException">;
using StackOverflowException = ExceptionOf<"StackOverflowException">;
using UnsupportedFormatException = ExceptionOf<"UnsupportedFormatException">;
using ThreadEndException = ExceptionOf<"ThreadEndException">;
using ThreadAlreadyRunningException = ExceptionOf<"ThreadAlreadyRunningException">;
using InvalidParentException = ExceptionOf<"InvalidParentException">;

/// The child for an exception of a foreign runtime, of which it holds the handle.
class ObjCException final : public Described<ObjCException, RuntimeException> {
 public:
  static constexpr FixedString FullName = "ObjCException";
  static void fillTable(ClassTable<ObjCException>& table);

  /// Lets go of the handle, which is not counted.
  void __Exit() { handle = nullptr; }

  void* handle = nullptr;
};

/// Builds the classes of the whole family.
void buildExceptionClasses();

/// The one C++ exception in which an exception object travels. Frames on the way give up what they
/// hold by their destructors; who catches it owns the object's count.
struct Raised {
  Ref<RuntimeException> exception;
};

/// A fault of the build itself, which no handler takes: what was made together does not fit
/// together. It ends the process with a report.
class FatalFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Raises the exception.
[[noreturn]] void RuntimeRaiseException(Ref<RuntimeException> exception);

/// Goes on raising an exception that a frame has taken.
[[noreturn]] void RuntimeReraiseException(Ref<RuntimeException> exception);

/// Makes an exception of the class and raises it.
template <class Exception>
[[noreturn]] void Raise(std::int32_t errorNumber = 0) {
  const Ref<Exception> exception = New<Exception>();
  exception->ErrorNumber = errorNumber;
  RuntimeRaiseException(exception);
}

}  // namespace veldrin
