#include "shell/host/Complaint.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace veldrin {
namespace {

void write(std::string_view text) noexcept {
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

bool isControl(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || code == 0x7F;
}

}  // namespace

void complain(std::string_view program, std::string_view sentence) {
  std::string line(program);
  line.append(": ").append(sentence);
  std::ranges::replace_if(line, isControl, '?');
  write(line + "\n");
}

void complainOfMemory(std::string_view program) noexcept {
  write(program);
  write(": There is not enough memory.\n");
}

}  // namespace veldrin
