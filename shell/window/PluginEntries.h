#pragma once

#include <cstdint>
#include <vector>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// The number of plug-in entries: operations of controls, looked up by name at start-up. They
/// exist because the framework's conventions ask for them; nothing in Veldrin calls one.
inline constexpr std::int32_t PluginEntryCount = 29;

/// The setter of a property by its name, such as "Placard.Value.Set", or nullptr. It takes the
/// object, an unused index and the value. Only setters of computed properties are found, because
/// the setter of a stored property uses the index as the offset of the field.
Function RuntimeLookupPluginEntrypoint(const String& name);

/// Looks up all entries and stores them.
void _InitPluginEntrypoints();

/// The entries in their fixed order. Empty before `_InitPluginEntrypoints`.
const std::vector<Function>& pluginEntries();

/// Clears the entries.
void releasePluginEntries();

}  // namespace veldrin
