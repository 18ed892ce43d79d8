#pragma once

#include <string>
#include <string_view>

namespace veldrin {

// The lines of an iCalendar document: RFC 5545, 3.1 and 3.3.11.

/// A text as the value of a property, with backslash, semicolon, comma and line ends escaped.
std::string escapedText(std::string_view text);

/// Appends a line with its CR LF, folded so that no line of the document has more than 75 bytes.
/// Folds only between characters of UTF-8.
void appendLine(std::string& document, std::string_view line);

}  // namespace veldrin
