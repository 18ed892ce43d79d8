#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Writes a whole text to the item as it stands and closes it: what was in a file is lost first.
/// Returns 0, or the error number of the host.
std::int32_t writeThrough(FolderItem& item, std::string_view text);

/// Makes the text the content of the file at the path, or leaves that as it was: the text goes into
/// a new file beside it, which takes its place when it is whole and on the disk. After a power cut
/// the path holds the old text or the new one, whole. A symbolic link is followed and
/// stays; of a file that is there already the mode stays, and the owner where the system allows it.
/// A second name of it (a hard link) keeps the old text. The folder has to be writable. Anything
/// else is written through: a device, a pipe, a file that the standard output goes to. Returns 0,
/// or the error number of the host.
std::int32_t replaceFile(const std::string& path, std::string_view text);

}  // namespace veldrin
