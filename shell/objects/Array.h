#pragma once

#include <utility>
#include <vector>

#include "shell/objects/Object.h"

namespace veldrin {

/// A one-dimensional array. It is an object without a class record. `T` must have a `TypeCode`.
template <class T>
class Array final : public Object {
 public:
  Array() = default;
  explicit Array(std::vector<T> values) : elements(std::move(values)) {}

  std::vector<T> elements;
};

}  // namespace veldrin
