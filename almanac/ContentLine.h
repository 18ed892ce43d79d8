#pragma once

#include <string>
#include <string_view>

namespace veldrin {

// The lines of an iCalendar document: RFC 5545, 3.1 and 3.3.11.

/// Converts a text to a property value: escapes backslash, semicolon, comma and line ends.
std::string escapedText(std::string_view text);

/// Appends a line and CR LF. Folds the line so that no line of the document has more than 75 bytes,
/// and never inside a UTF-8 character.
void appendLine(std::string& document, std::string_view line);

}  // namespace veldrin
