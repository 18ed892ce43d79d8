#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace veldrin::test {

/// The bytes of a file. Throws if it cannot be opened.
inline std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("no file " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The bytes of a file in tests/data.
inline std::string golden(const std::string& name) {
  return readFile(VELDRIN_TEST_DATA "/" + name);
}

/// The CRC-32 of zlib, bit by bit, in eight hexadecimal digits.
inline std::string checksumOf(std::string_view bytes) {
  std::uint32_t sum = ~0U;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08x", ~sum);
  return digits;
}

/// The days of a calendar document in order, each as "20080309 Sunrise at 07:34, Sunset at 19:06".
inline std::vector<std::string> daysOf(const std::string& document) {
  std::vector<std::string> days;
  std::istringstream lines(document);
  std::string summary;
  for (std::string line; std::getline(lines, line, '\r');) {
    if (line.starts_with("\nSUMMARY: ")) summary = line.substr(10);
    if (!line.starts_with("\nDTSTART:")) continue;
    const std::string day = line.substr(9, line.find('T', 9) - 9) + " ";
    if (days.empty() || !days.back().starts_with(day)) {
      days.push_back(day + summary);
    } else {
      days.back() += ", " + summary;
    }
  }
  return days;
}

/// The calendar document of these days, in the form of `daysOf`.
inline std::string documentOf(const std::vector<std::string>& days) {
  std::string document =
      "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nX-WR-CALNAME;VALUE=TEXT:Sunrise and Sunset\r\n"
      "X-WR-TIMEZONE:US/Pacific\r\nPRODID:-//Quorvex//Marnoth 1.0//EN\r\nCALSCALE:GREGORIAN\r\n";
  for (const std::string& row : days) {
    const std::size_t blank = row.find(' ');
    std::istringstream summaries(row.substr(blank));
    for (std::string summary; std::getline(summaries, summary, ',');) {
      std::string clock = "1200";
      if (const std::size_t colon = summary.find(':'); colon != std::string::npos) {
        clock = summary.substr(colon - 2, 2) + summary.substr(colon + 1);
      }
      document.append("BEGIN:VEVENT\r\nSUMMARY:").append(summary).append("\r\nDTSTART:");
      document.append(row, 0, blank).append("T").append(clock).append("00\r\nEND:VEVENT\r\n");
    }
  }
  return document + "END:VCALENDAR\r\n";
}

/// Describes the first line that differs, with its text in both documents; "" if they are equal.
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

/// The shortest text that parses to this double.
inline std::string textOf(double value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

}  // namespace veldrin::test
