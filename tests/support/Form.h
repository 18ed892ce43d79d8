#pragma once

#include <cctype>
#include <charconv>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Documents.h"

namespace veldrin::test {

/// A property stream of tests/data/form.txt.
struct FormStream {
  std::string kind, name;
  std::string sizeAndChecksum;
  std::string bytes;  ///< empty, except for one stream of each class
};

/// Reads tests/data/form.txt: the streams of the controls in creation order, then the window's.
inline std::vector<FormStream> readForm() {
  std::vector<FormStream> streams;
  std::istringstream file(golden("form.txt"));
  for (std::string word; file >> word;) {
    if (word == "#") {
      std::getline(file, word);
      continue;
    }
    if (word == "stream") {
      FormStream& stream = streams.emplace_back();
      file >> stream.kind >> stream.name >> std::ws;
      std::getline(file, stream.sizeAndChecksum);
      continue;
    }
    std::string& bytes = streams.back().bytes;
    bytes += word + ' ';
    file >> std::ws;
    while (std::isxdigit(file.peek()) != 0) {
      const char digits[] = {static_cast<char>(file.get()), static_cast<char>(file.get())};
      std::uint8_t byte = 0;
      std::from_chars(digits, digits + 2, byte, 16);
      bytes += static_cast<char>(byte);
    }
    if (file.peek() != '"') continue;
    std::getline(file.ignore(), word, '"');
    for (std::size_t at; (at = word.find("\\r")) != std::string::npos;) word.replace(at, 2, "\r");
    bytes += word;
  }
  return streams;
}

}  // namespace veldrin::test
