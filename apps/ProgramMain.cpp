#include "apps/ProgramMain.h"

#include <exception>
#include <new>

#include "shell/host/Complaint.h"
#include "shell/host/StandardDescriptors.h"
#include "shell/objects/Failure.h"

namespace veldrin {

int runProgram(const char* program, const std::function<int()>& body) {
  openStandardDescriptors();
  try {
    return body();
  } catch (const std::bad_alloc&) {
    complainOfMemory(program);
  } catch (const std::exception& failure) {
    complain(program, failure.what());
  } catch (const Raised& raised) {
    complain(program, raised.exception->classRecord()->name.view());
  } catch (...) {
    complain(program, "An unknown error occurred.");
  }
  return Failed;
}

}  // namespace veldrin
