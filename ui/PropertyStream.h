#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// A fault in a stream.
struct StreamFault {
  std::string key;     ///< start of the faulty entry's key, "?" for each byte not printable
  std::size_t offset;  ///< of the first faulty byte, from the stream's start
  std::string what;
};

/// One entry of a stream: the property that it sets, and the value.
struct StreamEntry {
  const PropertyRow* property;
  Variant value;
};

/// A parsed stream: all its entries, or the first fault and the entries before it.
struct StreamContents {
  std::vector<StreamEntry> entries;
  std::optional<StreamFault> fault;
};

/// Parses a stream for objects of a class. The class table gives the type of each key's value.
/// Never reads beyond the stream.
StreamContents readPropertyStream(const ClassRecord& record, std::string_view stream);

/// Applies a stream to an object through the setters of its class. Throws `FatalFault`, which names
/// the object, the key and the offset, if the stream has a fault; then nothing is applied. Raises
/// what a setter raises.
void RuntimeMassPropertySetter(const Ref<Object>& object, const String& stream);

/// Calls `RuntimeMassPropertySetter`.
void _SetProperties(const Ref<Object>& object, const String& stream);

}  // namespace veldrin
