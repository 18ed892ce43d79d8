#pragma once

namespace veldrin {

/// Takes up the state of this room: no file type is registered. From here on a write that the OS
/// refuses (past a limit on the size of files, into a pipe that nothing reads) is an error of that
/// write and does not end the process. At its end every file type is forgotten.
class FilesRoom {
 public:
  FilesRoom();
  FilesRoom(const FilesRoom&) = delete;
  FilesRoom& operator=(const FilesRoom&) = delete;
  ~FilesRoom();
};

}  // namespace veldrin
