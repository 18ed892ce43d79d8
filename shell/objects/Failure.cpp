#include "shell/objects/Failure.h"

#include <string>
#include <utility>
#include <vector>

#include "shell/objects/NewArray.h"

namespace veldrin {
namespace {

template <class... Exceptions>
void build() {
  (Exceptions::__ctblinit(), ...);
}

Ref<RuntimeException> outOfMemory;

void raiseOutOfMemory() {
  throw RaisedOutOfMemory(outOfMemory);
}

}  // namespace

void RuntimeException::fillTable(ClassTable<RuntimeException>& table) {
  table.method<&RuntimeException::Stack>("Stack"_s);
  table.property<&RuntimeException::Message>("Message"_s);
  table.property<&RuntimeException::ErrorNumber>("ErrorNumber"_s);
}

void ObjCException::fillTable(ClassTable<ObjCException>& table) {
  table.property<&ObjCException::handle>("handle"_s);
}

void buildExceptionClasses() {
  build<RuntimeException, NilObjectException, IllegalCastException, IOException, EndException,
        FunctionNotFoundException, TypeMismatchException, KeyNotFoundException,
        OutOfBoundsException, OutOfMemoryException, ServiceNotAvailableException,
        StackOverflowException, UnsupportedFormatException, ThreadEndException,
        ThreadAlreadyRunningException, InvalidParentException, ObjCException>();
}

Ref<Array<String>> RuntimeException::Stack() const {
  std::vector<String> names;
  for (const std::string& name : calls_.names()) names.emplace_back(name);
  return newArray(std::move(names));
}

OutOfMemoryRaiser::OutOfMemoryRaiser() {
  outOfMemory = New<OutOfMemoryException>();
  previous_ = std::set_new_handler(raiseOutOfMemory);
}

OutOfMemoryRaiser::~OutOfMemoryRaiser() {
  std::set_new_handler(previous_);
  outOfMemory = nullptr;
}

void RaiseNilObjectException() {
  Raise<NilObjectException>();
}

void RuntimeRaiseException(Ref<RuntimeException> exception) {
  exception->calls_.capture();
  throw Raised{std::move(exception)};
}

void RuntimeReraiseException(Ref<RuntimeException> exception) {
  if (!exception) RaiseNilObjectException();
  throw Raised{std::move(exception)};
}

}  // namespace veldrin
