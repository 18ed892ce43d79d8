#pragma once

#include "toolkits/qt/QtWindow.h"

namespace veldrin {

/// What a screen reader says of the controls whose own text says too little.
inline constexpr SpokenName SpokenNames[] = {
    {"BackOneDay", "Previous day"},
    {"ForwardOneDay", "Next day"},
    {"WhichYear", "Year"},
};

}  // namespace veldrin
