#include "shell/host/Complaint.h"

#include <cstdio>
#include <string>

#include "shell/host/PlainText.h"

namespace veldrin {
namespace {

void write(std::string_view text) noexcept {
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

}  // namespace

void complain(std::string_view program, std::string_view sentence) {
  write(std::string(program) + ": " + onOneLine(sentence) + "\n");
}

void complainOfMemory(std::string_view program) noexcept {
  write(program);
  write(": There is not enough memory.\n");
}

}  // namespace veldrin
