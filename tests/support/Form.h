#pragma once

#include <charconv>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "shell/objects/Color.h"
#include "shell/objects/Variant.h"
#include "tests/support/Documents.h"

namespace veldrin::test {

/// A property as the form spells it, and its value.
struct FormEntry {
  std::string key;
  Variant value;
};

/// A control or the window, with its properties in the order of its stream.
struct FormObject {
  std::string kind, name;
  std::vector<FormEntry> entries;
};

/// A value as tests/data/form.txt has it: true, -8, #FF0000 or "a text\r".
inline Variant formValue(std::string_view text) {
  if (text == "true" || text == "false") return text == "true";
  const bool color = text.starts_with('#');
  if (text.starts_with('"')) {
    std::string content(text.substr(1, text.size() - 2));
    for (std::size_t at; (at = content.find("\\r")) != std::string::npos;) {
      content.replace(at, 2, "\r");
    }
    return String(content);
  }
  std::int32_t number = 0;
  std::from_chars(text.data() + color, text.data() + text.size(), number, color ? 16 : 10);
  if (!color) return number;
  const auto part = [&](int shift) { return static_cast<std::uint8_t>(number >> shift); };
  return Color{part(16), part(8), part(0)};
}

/// The form as tests/data/form.txt has it: the controls in the order of making, then the window.
inline std::vector<FormObject> readForm() {
  std::vector<FormObject> objects;
  std::istringstream file(golden("form.txt"));
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with('#')) continue;
    const std::size_t indent = line.starts_with(' ') ? 2 : 0;
    const std::size_t blank = line.find(' ', indent);
    const std::string first = line.substr(indent, blank - indent);
    const std::string second = line.substr(blank + 1);
    if (indent == 0) {
      objects.push_back({first, second, {}});
    } else {
      objects.back().entries.push_back({first, formValue(second)});
    }
  }
  return objects;
}

}  // namespace veldrin::test
