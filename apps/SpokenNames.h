#pragma once

#include <vector>

#include "daystatus/FormTable.h"
#include "toolkits/qt/QtWindow.h"

namespace veldrin {

/// What a screen reader says of the controls whose own text says too little, from the form's table.
inline std::vector<SpokenName> spokenNames() {
  std::vector<SpokenName> names;
  for (const ControlRow& row : FormTable) {
    if (!row.extras.spokenName.empty()) names.push_back({row.name, row.extras.spokenName});
  }
  return names;
}

}  // namespace veldrin
