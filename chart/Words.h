#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "chart/SunDay.h"

namespace veldrin {

// Days and times as texts of the picture.

/// "January" for 1.
std::string_view monthName(std::int32_t month);

/// "21 June"
std::string dateWords(std::int64_t day);

/// A minute of the day [0:1440]: "07:05", "24:00".
std::string clockTime(std::int32_t minute);

/// "16 h 05 min"
std::string lengthWords(std::int32_t minutes);

/// "29 March: sunrise 07:05, sunset 19:50, 12 h 45 min of sun".
std::string dayWords(const SunDay& day);

}  // namespace veldrin
