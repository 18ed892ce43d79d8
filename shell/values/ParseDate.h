#pragma once

#include <optional>
#include <string_view>

#include "shell/host/Civil.h"
#include "shell/host/Host.h"
#include "shell/values/Date.h"

namespace veldrin {

/// Reads a date, or returns nothing if the text is not one. Two forms are accepted, with blanks
/// around them: the host's short form, with "/", ".", "-" or a blank between the numbers and
/// optionally a "." after them; and year-month-day with a year of four digits or more, as in
/// "2008-03-09". A year of two digits means 1969 to 2068. Month and day have one or two digits. The
/// day must exist.
std::optional<CivilDay> readDate(std::string_view text, const ShortDateForm& form);

/// Reads a date with `readDate` and the host's form. On success sets `date` to 00:00:00 of that
/// day, making a new object for nil, and returns true. Otherwise leaves `date` unchanged. Never
/// raises.
bool ParseDate(const String& text, Ref<Date>& date);

}  // namespace veldrin
