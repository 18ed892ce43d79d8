#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Overwrites the item with the text, in place. If writing fails, the old content of a file is
/// lost. Returns 0, or the error number of the OS.
std::int32_t writeThrough(FolderItem& item, std::string_view text);

/// Replaces the content of the file at the path, or leaves the file unchanged if that fails. Writes
/// the text to a new file in the same folder, which must be writable, and renames it. The text
/// reaches the disk before it replaces an old file, so a power cut leaves all of the old text or
/// all of the new. Symbolic links are followed and kept. An existing file keeps its mode, and its
/// owner and group if the OS allows it; a different group gets no permissions. Another hard link
/// keeps the old text. A device, a pipe and the file behind standard output or standard error are
/// overwritten in place instead. Returns 0, or the error number of the OS.
std::int32_t replaceFile(const std::string& path, std::string_view text);

}  // namespace veldrin
