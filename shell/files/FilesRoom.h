#pragma once

namespace veldrin {

/// Owns the registry of file types. The constructor also ignores SIGXFSZ and SIGPIPE: a write
/// beyond the file size limit or to a pipe without a reader then fails instead of ending the
/// process.
class FilesRoom {
 public:
  FilesRoom();
  FilesRoom(const FilesRoom&) = delete;
  FilesRoom& operator=(const FilesRoom&) = delete;
  ~FilesRoom();
};

}  // namespace veldrin
