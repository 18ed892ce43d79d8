#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "shell/objects/Array.h"
#include "shell/objects/Ref.h"

namespace veldrin {

/// Creates an array with these elements.
template <class T>
Ref<Array<T>> newArray(std::vector<T> elements) {
  return Ref<Array<T>>::adopt(std::make_unique<Array<T>>(std::move(elements)).release());
}

}  // namespace veldrin
