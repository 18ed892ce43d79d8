#pragma once

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace veldrin::test {

/// The bytes of a file; throws where there is none.
inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("no file " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A calendar document of tests/data. They were written by bench/bare/main.cpp, which shares no
/// code with the application: `bare-calendar LAT LON ZONE YEAR FILE [nodst] [downunder]`.
inline std::string golden(const std::string& name) {
  return readFile(VELDRIN_TEST_DATA "/" + name);
}

/// Where two documents part, by the line and its text in both; "" for equal ones.
inline std::string firstDifference(std::string_view actual, std::string_view expected) {
  if (actual == expected) return "";
  const auto [end, other] =
      std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const std::string_view same(actual.begin(), end);
  const std::size_t start = same.rfind('\n') == std::string_view::npos ? 0 : same.rfind('\n') + 1;
  const auto lineOf = [start](std::string_view text) {
    const std::string_view rest = text.substr(std::min(start, text.size()));
    return "\"" + std::string(rest.substr(0, rest.find('\r'))) + "\"";
  };
  return "line " + std::to_string(std::count(same.begin(), same.end(), '\n') + 1) + " is " +
         lineOf(actual) + ", not " + lineOf(expected) + " (" + std::to_string(actual.size()) +
         " and " + std::to_string(expected.size()) + " bytes)";
}

/// The shortest text that reads back as this double.
inline std::string textOf(double value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

}  // namespace veldrin::test
