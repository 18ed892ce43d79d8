#include "almanac/ContentLine.h"

#include <cstddef>

#include "shell/host/PlainText.h"

namespace veldrin {
namespace {

constexpr std::size_t MostBytes = 75;
constexpr std::string_view Fold = "\r\n ";

}  // namespace

std::string escapedText(std::string_view text) {
  std::string escaped;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char byte = text[index];
    if (byte == '\r' || byte == '\n') {
      if (byte == '\r' && text.substr(index + 1).starts_with('\n')) ++index;
      escaped += "\\n";
      continue;
    }
    if (byte == '\\' || byte == ';' || byte == ',') escaped += '\\';
    escaped += byte;
  }
  return escaped;
}

void appendLine(std::string& document, std::string_view line) {
  std::size_t room = MostBytes;
  while (line.size() > room) {
    std::size_t length = room;
    while (length > 1 && continuesCharacter(line[length])) --length;
    document.append(line.substr(0, length)).append(Fold);
    line.remove_prefix(length);
    room = MostBytes - 1;  // the space that begins a folded line counts
  }
  document.append(line).append("\r\n");
}

}  // namespace veldrin
