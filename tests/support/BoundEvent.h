#pragma once

#include "shell/objects/ClassRecord.h"

namespace veldrin::test {

/// Binds a handler to an event of a class for as long as it lives. A control that has a handler of
/// its own does not come to that of its class.
class BoundEvent {
 public:
  template <class Handler>
  BoundEvent(ClassRecord* record, const String& event, Handler handler)
      : row_(record->eventRows.at(static_cast<std::size_t>(FindEvent(*record, event)))),
        before_(row_.handler) {
    row_.handler = reinterpret_cast<Function>(+handler);
  }
  BoundEvent(const BoundEvent&) = delete;
  BoundEvent& operator=(const BoundEvent&) = delete;
  ~BoundEvent() { row_.handler = before_; }

 private:
  EventRow& row_;
  Function before_;
};

}  // namespace veldrin::test
