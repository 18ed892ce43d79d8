#pragma once

#include <utility>
#include <vector>

#include "shell/objects/Object.h"

namespace veldrin {

/// An array of one dimension, shared by whoever holds it: an object with no class of its own. `T`
/// is a type that has a type code.
template <class T>
class Array final : public Object {
 public:
  Array() = default;
  explicit Array(std::vector<T> values) : elements(std::move(values)) {}

  std::vector<T> elements;
};

}  // namespace veldrin
