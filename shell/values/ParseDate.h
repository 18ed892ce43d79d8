#pragma once

#include <optional>
#include <string_view>

#include "shell/host/Civil.h"
#include "shell/host/Host.h"
#include "shell/values/Date.h"

namespace veldrin {

/// Reads a date; nullopt if the text is not one or the day does not exist. The numbers are in the
/// order of `form`, with "/", ".", "-" or a blank between them. A date such as "2008-03-09" is
/// year-month-day in any form except year-day-month with "-". A year has two digits, meaning 1969
/// to 2068, or at least four; month and day have one or two. Blanks may surround each part, and a
/// "." may end the date.
std::optional<CivilDay> readDate(std::string_view text, const ShortDateForm& form);

/// Reads a date with `readDate` and the host's form. On success sets `date` to 00:00:00 of that
/// day, in a new object if it is nil, and returns true. Otherwise returns false and leaves `date`
/// unchanged.
bool ParseDate(const String& text, Ref<Date>& date);

}  // namespace veldrin
