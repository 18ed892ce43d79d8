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

/// Raises the exception, and notes in it the calls that it comes from. A nil one is a
/// `NilObjectException`.
[[noreturn]] void RuntimeRaiseException(Ref<RuntimeException> exception);

/// The root of the family of exception objects. Whoever raises one sets at most `ErrorNumber`; the
/// words that a person reads come from the report of an exception that nothing caught.
class RuntimeException : public Described<RuntimeException, Object> {
 public:
  static constexpr FixedString FullName = "RuntimeException";
  static void fillTable(ClassTable<RuntimeException>& table);

  /// `RuntimeExceptionInitializer`: no message, no number.
  void __Init() { ErrorNumber = 0; }
  /// `RuntimeExceptionFinalizer`: gives up the texts.
  void __Exit() {
    Message = String();
    incompleteFile = String();
  }

  /// A new array with the calls in which it was raised, the innermost first, up to 30: names of
  /// functions where the program has them, else places as in "veldrin+0x1f40". Empty for one that
  /// has not been raised, and for the one of exhausted memory.
  [[nodiscard]] Ref<Array<String>> Stack() const;

  String Message;
  std::int32_t ErrorNumber = 0;  ///< of a failed file operation: the host's `errno`
  String incompleteFile;  ///< the path of the file whose writing it has ended, for the report

 private:
  friend void RuntimeRaiseException(Ref<RuntimeException> exception);

  CallStack calls_;
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

/// The same for exhausted memory. The library lets what finds memory for it throw this and no
/// other, so it is a `std::bad_alloc` as well.
struct RaisedOutOfMemory : Raised, std::bad_alloc {
  explicit RaisedOutOfMemory(Ref<RuntimeException> raised) : Raised{std::move(raised)} {}
};

/// While one of these lives, memory that cannot be had raises `OutOfMemoryException`, whoever in
/// the process asks for it. The exception object has been made ahead, because then it could not be.
class OutOfMemoryRaiser {
 public:
  OutOfMemoryRaiser();
  OutOfMemoryRaiser(const OutOfMemoryRaiser&) = delete;
  OutOfMemoryRaiser& operator=(const OutOfMemoryRaiser&) = delete;
  ~OutOfMemoryRaiser();

 private:
  std::new_handler before_;
};

/// An error in the program itself, such as a table that does not match its base. No handler catches
/// it; it is reported and the run ends.
class FatalFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Goes on raising an exception that a frame has taken; nil likewise.
[[noreturn]] void RuntimeReraiseException(Ref<RuntimeException> exception);

/// Makes an exception of the class and raises it.
template <class Exception>
[[noreturn]] void Raise(std::int32_t errorNumber = 0) {
  const Ref<Exception> exception = New<Exception>();
  exception->ErrorNumber = errorNumber;
  RuntimeRaiseException(exception);
}

}  // namespace veldrin
