#pragma once

#include <cstddef>

#include "shell/objects/Dictionary.h"

namespace veldrin::Introspection {

/// An undo log for the maps of descriptions. A class description is registered before it is
/// complete, so that its members can refer to it. After an exception, the destructor undoes all
/// registrations since the constructor. An outer journal also undoes committed inner ones.
class Journal {
 public:
  Journal() : start_(begin()) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;
  /// Undoes all registrations, unless committed.
  ~Journal();

  /// Call when the description is complete.
  void commit() { isCommitted_ = true; }

  /// Sets the value of a key. Logs the previous value if a journal exists.
  static void setValue(const Ref<Dictionary>& map, const Variant& key, const Variant& value);

 private:
  static std::size_t begin();

  std::size_t start_;
  bool isCommitted_ = false;
};

}  // namespace veldrin::Introspection
