#pragma once

#include <optional>
#include <string_view>

#include "shell/host/Civil.h"
#include "shell/host/Host.h"
#include "shell/values/Date.h"

namespace veldrin {

/// The day that a text names, if it names one. Two forms are read, with blanks around and no more:
/// the host's short form with any of "/", ".", "-" or a blank between the numbers and perhaps a "."
/// behind them, and a day that begins with the year, as in "2008-03-09". A year has two digits (69
/// to 99 are 1969 to 1999, 00 to 68 are 2000 to 2068) or four and more, a month or a day one or
/// two; a day that does not exist is no date.
std::optional<CivilDay> readDate(std::string_view text, const ShortDateForm& form);

/// Reads a text as a date, by `readDate` and the host's form. On true `date` holds that day at
/// 00:00:00 (a new one is made where it is nil); on false it is left as it was. It never raises.
bool ParseDate(const String& text, Ref<Date>& date);

}  // namespace veldrin
