#pragma once

#include <cstdint>
#include <new>
#include <stdexcept>
#include <utility>

#include "shell/objects/CallStack.h"
#include "shell/objects/Described.h"
#include "shell/objects/Ref.h"
#include "shell/objects/String.h"

namespace veldrin {

class RuntimeException;

/// Raises the exception and records the call stack in it. A nil argument raises
/// `NilObjectException`.
[[noreturn]] void RuntimeRaiseException(Ref<RuntimeException> exception);

/// The base class of all exception objects. Veldrin leaves `Message` empty; the report of an
/// unhandled exception writes the text for the user.
class RuntimeException : public Described<RuntimeException, Object> {
 public:
  static constexpr FixedString FullName = "RuntimeException";
  static void fillTable(ClassTable<RuntimeException>& table);

  /// The framework's conventions call this hook `RuntimeExceptionInitializer`.
  void __Init() { ErrorNumber = 0; }
  /// The framework's conventions call this hook `RuntimeExceptionFinalizer`.
  void __Exit() {
    Message = String();
    incompleteFile = String();
  }

  /// The call stack at the raise, from `CallStack::names()`, in a new array. Empty if the
  /// exception was not raised, or was raised by `OutOfMemoryRaiser`.
  [[nodiscard]] Ref<Array<String>> Stack() const;

  String Message;
  std::int32_t ErrorNumber = 0;  ///< `errno` of a failed file operation, else 0
  String incompleteFile;         ///< path of a file left incomplete, else empty

 private:
  friend void RuntimeRaiseException(Ref<RuntimeException> exception);

  CallStack calls_;
};

/// A derived exception class that adds no members.
template <FixedString Name>
class ExceptionOf final : public Described<ExceptionOf<Name>, RuntimeException> {
 public:
  static constexpr FixedString FullName = Name;
};

// Nothing in Veldrin raises `ServiceNotAvailableException`, `ThreadEndException`,
// `ThreadAlreadyRunningException` or `InvalidParentException`; see docs/names.md.
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

/// Wraps an exception of a foreign runtime. Nothing in Veldrin raises it; see docs/names.md.
class ObjCException final : public Described<ObjCException, RuntimeException> {
 public:
  static constexpr FixedString FullName = "ObjCException";
  static void fillTable(ClassTable<ObjCException>& table);

  /// The handle is not reference-counted, so it is only cleared.
  void __Exit() { handle = nullptr; }

  void* handle = nullptr;
};

/// Builds the records of all exception classes.
void buildExceptionClasses();

/// The C++ exception that carries an exception object.
struct Raised {
  Ref<RuntimeException> exception;
};

/// Also derives from `std::bad_alloc`: the C++ standard lets a new-handler throw nothing else.
struct RaisedOutOfMemory : Raised, std::bad_alloc {
  explicit RaisedOutOfMemory(Ref<RuntimeException> raised) : Raised{std::move(raised)} {}
};

/// While it exists, every failing `operator new` in the process raises `OutOfMemoryException`. The
/// constructor creates the exception object in advance, while there is memory.
class OutOfMemoryRaiser {
 public:
  OutOfMemoryRaiser();
  OutOfMemoryRaiser(const OutOfMemoryRaiser&) = delete;
  OutOfMemoryRaiser& operator=(const OutOfMemoryRaiser&) = delete;
  ~OutOfMemoryRaiser();

 private:
  std::new_handler previous_;
};

/// A bug in Veldrin, such as a class table that does not match its base. No event handler gets it:
/// Veldrin reports it and exits.
class FatalFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Raises a caught exception again and keeps its call stack. A nil argument raises
/// `NilObjectException`. Nothing in Veldrin calls it; see docs/names.md.
[[noreturn]] void RuntimeReraiseException(Ref<RuntimeException> exception);

/// Creates an exception object and raises it.
template <class Exception>
[[noreturn]] void Raise(std::int32_t errorNumber = 0) {
  const Ref<Exception> exception = New<Exception>();
  exception->ErrorNumber = errorNumber;
  RuntimeRaiseException(exception);
}

}  // namespace veldrin
