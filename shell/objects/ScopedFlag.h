#pragma once

#include <utility>

namespace veldrin {

/// Sets a flag for as long as this lives, and then gives it the value from before.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace veldrin
