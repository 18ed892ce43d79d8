#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// A fault in a stream.
struct StreamFault {
  std::string key;     ///< start of the faulty entry's key; unprintable bytes become "?"
  std::size_t offset;  ///< of the first faulty byte, from the stream's start
  std::string what;
};

/// One entry of a stream: a property and its value.
struct StreamEntry {
  const PropertyRow* property;
  Variant value;
};

/// A parsed stream: all its entries, or the first fault and the entries before it.
struct StreamContents {
  std::vector<StreamEntry> entries;
  std::optional<StreamFault> fault;
};

/// Parses a stream for objects of a class. The class record gives the type of each property. Never
/// reads beyond the stream.
StreamContents readPropertyStream(const ClassRecord& record, std::string_view stream);

/// Sets the properties of an object from a stream, with the setters of its class. If the stream has
/// a fault, sets none and throws `FatalFault`, which names the object, the key and the offset.
/// Raises the exceptions of the setters.
void RuntimeMassPropertySetter(const Ref<Object>& object, const String& stream);

/// Calls `RuntimeMassPropertySetter`.
void _SetProperties(const Ref<Object>& object, const String& stream);

}  // namespace veldrin
