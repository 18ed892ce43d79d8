#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// What is wrong with a stream, and where.
struct StreamFault {
  std::string key;  ///< of the entry at fault, its beginning, with "?" for what is not plain ASCII
  std::size_t offset;  ///< of the first byte that does not fit, from the stream's start
  std::string what;
};

/// One entry of a stream: the property that it sets, and the value.
struct StreamEntry {
  const PropertyRow* property;
  Variant value;
};

/// A stream taken apart: all its entries, or the first fault and the entries before it.
struct StreamContents {
  std::vector<StreamEntry> entries;
  std::optional<StreamFault> fault;
};

/// Takes a stream apart for objects of a class. The type of a value follows from its key alone, by
/// the class's table. No read leaves the stream, whatever it holds.
StreamContents readPropertyStream(const ClassRecord& record, std::string_view stream);

/// Applies a stream to an object, entry by entry, through the setters of its class. Nothing is
/// applied of a stream with a fault: it was made together with the class, so a fault is one of the
/// build. Throws `FatalFault`, which names the object, the key and the offset; what a setter raises
/// passes through.
void RuntimeMassPropertySetter(const Ref<Object>& object, const String& stream);

/// Hands on to `RuntimeMassPropertySetter`.
void _SetProperties(const Ref<Object>& object, const String& stream);

}  // namespace veldrin
