#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include "shell/objects/Described.h"

namespace veldrin {

/// The mode of a new file. The OS clears the bits of the umask in it.
inline constexpr mode_t NewFileMode = 0666;

/// A file that is open for writing.
class WritableFile {
 public:
  WritableFile(const WritableFile&) = delete;
  WritableFile& operator=(const WritableFile&) = delete;
  /// Closes the file.
  virtual ~WritableFile() = default;

  /// Writes `text` and then `end`, unbuffered, in one call to the OS if possible. Returns 0, or the
  /// error number of the OS; even then all earlier writes are in the file.
  virtual std::int32_t write(std::string_view text, std::string_view end) = 0;

  /// Closes now, to report errors that only closing reveals. Returns 0 or the error number of the
  /// OS. Write nothing afterwards.
  virtual std::int32_t close() { return 0; }

 protected:
  WritableFile() = default;
};

/// A path in the file system. Nothing needs to exist there.
class FolderItem : public Described<FolderItem, Object> {
 public:
  static constexpr FixedString FullName = "FolderItem";
  static void fillTable(ClassTable<FolderItem>& table);

  /// The absolute path, for display.
  [[nodiscard]] virtual String AbsolutePath() const;

  /// The OS's error number of the last `create`, or 0.
  std::int32_t LastErrorCode = 0;

  /// Opens the item for writing. An existing file is emptied in place and keeps its mode and hard
  /// links. On failure sets `LastErrorCode`, returns nullptr and changes no file.
  virtual std::unique_ptr<WritableFile> create();

  /// The item of a path, absolute or relative to the working folder.
  static Ref<FolderItem> atPath(String path);

 private:
  String path_;
};

/// Wraps an open descriptor. Closing the file closes the descriptor.
std::unique_ptr<WritableFile> openDescriptor(int descriptor);

}  // namespace veldrin
