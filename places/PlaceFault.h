#pragma once

#include <stdexcept>

namespace veldrin {

/// A place that the user named and that cannot be used. `what()` is one sentence for the user and
/// ends with a full stop.
class PlaceFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace veldrin
