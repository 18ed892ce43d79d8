#pragma once

#include <utility>

namespace veldrin {

/// Sets a flag until the end of the scope, then restores its previous value.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), previous_(std::exchange(flag, true)) {}
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = previous_; }

 private:
  bool& flag_;
  bool previous_;
};

}  // namespace veldrin
