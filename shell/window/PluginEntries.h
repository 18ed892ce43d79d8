#pragma once

#include <cstdint>
#include <vector>

#include "shell/objects/ClassRecord.h"

namespace veldrin {

/// The number of plug-in entries that the start-up asks for: those of controls that are kept
/// outside the class tables.
inline constexpr std::int32_t PluginEntryCount = 29;

/// The implementation of a control's operation by its name, such as "Placard.Value.Set"; nil for
/// what this build does not have. An entry that sets a property takes the object, an index word
/// that it does not look at, and the value: it is found for properties that are computed, since the
/// one of a stored property would take the index for the place of the field.
Function RuntimeLookupPluginEntrypoint(const String& name);

/// Looks the entries up, one after the other, and keeps them.
void _InitPluginEntrypoints();

/// The table of the entries, in the order of their names; empty before `_InitPluginEntrypoints`.
/// Nothing calls an entry: the table exists because the framework's conventions ask for it.
const std::vector<Function>& pluginEntries();

/// Gives the table up.
void layDownPluginEntries();

}  // namespace veldrin
