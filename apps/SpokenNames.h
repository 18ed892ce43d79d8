#pragma once

#include <vector>

#include "daystatus/FormTable.h"
#include "toolkits/qt/QtWindow.h"

namespace veldrin {

/// The names in `FormTable` that a screen reader speaks for controls whose own text is not enough.
inline std::vector<SpokenName> spokenNames() {
  std::vector<SpokenName> names;
  for (const ControlRow& row : FormTable) {
    if (!row.extras.spokenName.empty()) names.push_back({row.name, row.extras.spokenName});
  }
  return names;
}

}  // namespace veldrin
