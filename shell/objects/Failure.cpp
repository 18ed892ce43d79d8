#include "shell/objects/Failure.h"

#include <utility>

#include "shell/objects/NewArray.h"

namespace veldrin {

void RuntimeException::fillTable(ClassTable<RuntimeException>& table) {
  table.method<&RuntimeException::Stack>("Stack"_s);
  table.property<&RuntimeException::Message>("Message"_s);
  table.property<&RuntimeException::ErrorNumber>("ErrorNumber"_s);
}

void ObjCException::fillTable(ClassTable<ObjCException>& table) {
  table.property<&ObjCException::handle>("handle"_s);
}

namespace {

template <class... Exceptions>
void build() {
  (Exceptions::__ctblinit(), ...);
}

}  // namespace

void buildExceptionClasses() {
  build<RuntimeException, NilObjectException, IllegalCastException, IOException, EndException,
        FunctionNotFoundException, TypeMismatchException, KeyNotFoundException,
        OutOfBoundsException, OutOfMemoryException, ServiceNotAvailableException,
        StackOverflowException, UnsupportedFormatException, ThreadEndException,
        ThreadAlreadyRunningException, InvalidParentException, ObjCException>();
}

Ref<Array<String>> RuntimeException::Stack() const {
  return newArray(std::vector<String>());
}

void RaiseNilObjectException() {
  Raise<NilObjectException>();
}

void RuntimeRaiseException(Ref<RuntimeException> exception) {
  throw Raised{std::move(exception)};
}

void RuntimeReraiseException(Ref<RuntimeException> exception) {
  throw Raised{std::move(exception)};
}

}  // namespace veldrin
