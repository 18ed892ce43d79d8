#pragma once

#include <utility>
#include <vector>

#include "shell/objects/Object.h"

namespace veldrin {

/// A one-dimensional array. It has no class record. In a class table, `T` needs a `TypeCode`.
template <class T>
class Array final : public Object {
 public:
  Array() = default;
  explicit Array(std::vector<T> values) : elements(std::move(values)) {}

  std::vector<T> elements;
};

}  // namespace veldrin
