#pragma once

#include <cctype>
#include <charconv>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/objects/Color.h"
#include "shell/objects/Variant.h"
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

/// A text in quotes, in which \r is a carriage return.
inline std::string quotedText(std::istream& file) {
  std::string text;
  std::getline(file.ignore(), text, '"');
  for (std::size_t at; (at = text.find("\\r")) != std::string::npos;) text.replace(at, 2, "\r");
  return text;
}

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
    if (isText) bytes += quotedText(file);
    form.keys[kind].emplace_back(word, isText ? 0 : length);
  }
  return form;
}

/// Reads a stream by the keys of its class. Throws where another key stands or bytes are left.
inline std::vector<std::pair<std::string, Variant>> entriesOf(std::string_view stream,
                                                              const FormKeys& keys) {
  const auto take = [&stream](std::size_t length) {
    const std::string_view taken = stream.substr(0, length);
    stream.remove_prefix(taken.size());
    return taken;
  };
  const auto integer = [&take] {
    std::uint32_t value = 0;
    for (const char byte : take(4)) value = value << 8 | static_cast<unsigned char>(byte);
    return value;
  };
  std::vector<std::pair<std::string, Variant>> entries;
  for (const auto& [key, length] : keys) {
    if (take(key.size() + 1) != key + ' ') throw std::runtime_error("no key " + key);
    Variant& value = entries.emplace_back(key, Variant()).second;
    if (length == 0) value = String(take(integer()));
    if (length == 1) value = take(1) != std::string_view("\0", 1);
    if (length == 3) {
      const std::string_view parts = take(3);
      const auto part = [&](std::size_t at) { return static_cast<std::uint8_t>(parts.at(at)); };
      value = Color{part(0), part(1), part(2)};
    }
    if (length == 4) value = static_cast<std::int32_t>(integer());
  }
  if (!stream.empty()) throw std::runtime_error("bytes behind the last key");
  return entries;
}

}  // namespace veldrin::test
