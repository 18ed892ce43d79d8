#pragma once

#include <cstddef>

#include "shell/objects/Dictionary.h"

namespace veldrin::Introspection {

/// What is entered in the maps of descriptions while one of them is being made. A class enters
/// itself before it is complete, so that a type which refers to itself finds itself; where an
/// exception ends the making, everything that was entered since it began is taken back, and the
/// next lookup makes it anew. A nested journal is taken back with the outer
/// one.
class Journal {
 public:
  Journal() : start_(begin()) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;
  /// Takes everything back, unless it is to be kept.
  ~Journal();

  /// The description is complete.
  void keep() { kept_ = true; }

  /// Sets the value of a key, and notes what it was before.
  static void enter(const Ref<Dictionary>& map, const Variant& key, const Variant& value);

 private:
  static std::size_t begin();

  std::size_t start_;
  bool kept_ = false;
};

}  // namespace veldrin::Introspection
