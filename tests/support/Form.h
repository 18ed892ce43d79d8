#pragma once

#include <cctype>
#include <charconv>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/Documents.h"

namespace veldrin::test {

/// A property stream as tests/data/form.txt has it.
struct FormStream {
  std::string kind, name;
  std::string sizeAndChecksum;
  std::string bytes;  ///< empty, except for one stream of each class
};

/// The keys of a class in the order of its streams, each with the length of its value; 0: a text.
using FormKeys = std::vector<std::pair<std::string, std::size_t>>;

/// The streams in the order of making, the window's last, and the keys by class.
struct Form {
  std::vector<FormStream> streams;
  std::map<std::string, FormKeys> keys;
};

/// Reads tests/data/form.txt.
inline Form readForm() {
  Form form;
  std::istringstream file(golden("form.txt"));
  for (std::string word; file >> word;) {
    if (word == "#") {
      std::getline(file, word);
      continue;
    }
    if (word == "stream") {
      FormStream& stream = form.streams.emplace_back();
      file >> stream.kind >> stream.name >> std::ws;
      std::getline(file, stream.sizeAndChecksum);
      continue;
    }
    auto& [kind, name, sizeAndChecksum, bytes] = form.streams.back();
    bytes += word + ' ';
    file >> std::ws;
    std::size_t length = 0;
    for (; std::isxdigit(file.peek()) != 0; ++length) {
      const char digits[] = {static_cast<char>(file.get()), static_cast<char>(file.get())};
      std::uint8_t byte = 0;
      std::from_chars(digits, digits + 2, byte, 16);
      bytes += static_cast<char>(byte);
    }
    const bool isText = file.peek() == '"';
    form.keys[kind].emplace_back(word, isText ? 0 : length);
    if (!isText) continue;
    std::getline(file.ignore(), word, '"');
    for (std::size_t at; (at = word.find("\\r")) != std::string::npos;) word.replace(at, 2, "\r");
    bytes += word;
  }
  return form;
}

/// Whether the stream is the keys of its class in order, each with a value of its length.
inline bool hasKeys(std::string_view stream, const FormKeys& keys) {
  const auto take = [&stream](std::size_t length) {
    const std::string_view taken = stream.substr(0, length);
    stream.remove_prefix(taken.size());
    return taken;
  };
  for (const auto& [key, length] : keys) {
    if (take(key.size() + 1) != key + ' ') return false;
    std::size_t size = length;
    if (length == 0) {
      for (const char byte : take(4)) size = size << 8 | static_cast<unsigned char>(byte);
    }
    if (take(size).size() != size) return false;
  }
  return stream.empty();
}

}  // namespace veldrin::test
