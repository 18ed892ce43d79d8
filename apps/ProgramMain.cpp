#include "apps/ProgramMain.h"

#include <cstdio>
#include <exception>
#include <new>

#include "apps/PlainText.h"
#include "shell/host/StandardDescriptors.h"
#include "shell/objects/Failure.h"

namespace veldrin {

void complain(const char* program, const std::string& sentence) {
  static_cast<void>(std::fprintf(stderr, "%s: %s\n", program, onOneLine(sentence).c_str()));
}

void complainOfMemory(const char* program) {
  static_cast<void>(std::fprintf(stderr, "%s: There is not enough memory.\n", program));
}

int runProgram(const char* program, const std::function<int()>& body) {
  openStandardDescriptors();
  try {
    return body();
  } catch (const std::bad_alloc&) {
    complainOfMemory(program);
  } catch (const std::exception& failure) {
    complain(program, failure.what());
  } catch (const Raised& raised) {
    complain(program, std::string(raised.exception->classRecord()->name.view()));
  } catch (...) {
    complain(program, "An unknown error occurred.");
  }
  return Failed;
}

}  // namespace veldrin
