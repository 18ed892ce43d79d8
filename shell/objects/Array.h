#pragma once

#include <vector>

#include "shell/objects/Object.h"

namespace veldrin {

/// What arrays of all element types have in common: an array is an object with no class of its own.
class ArrayObject : public Object {
 protected:
  ArrayObject() = default;
};

/// An array of one dimension, shared by whoever holds it. `T` is a type that has a type code.
template <class T>
class Array final : public ArrayObject {
 public:
  using Element = T;

  Array() = default;
  explicit Array(std::vector<T> values) : elements(std::move(values)) {}

  std::vector<T> elements;
};

}  // namespace veldrin
