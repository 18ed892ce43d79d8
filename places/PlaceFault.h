#pragma once

#include <stdexcept>

namespace veldrin {

/// The place that the user named cannot be used. `what()` is one sentence for the user, with a full
/// stop.
class PlaceFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace veldrin
