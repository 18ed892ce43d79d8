#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "shell/objects/Described.h"

namespace veldrin {

/// A file that is open for writing.
class WritableFile {
 public:
  WritableFile(const WritableFile&) = delete;
  WritableFile& operator=(const WritableFile&) = delete;
  /// Closes the file.
  virtual ~WritableFile() = default;

  /// Hands both texts, one behind the other, to the system at once. Returns 0, or the error number
  /// of the host, with all that came before in the file.
  virtual std::int32_t write(std::string_view text, std::string_view end) = 0;

  /// Closes the file ahead of its end, for what only then comes out. Returns as `write` does;
  /// nothing may be written afterwards.
  virtual std::int32_t close() { return 0; }

 protected:
  WritableFile() = default;
};

/// A place in the file system, whether something lies there or not.
class FolderItem : public Described<FolderItem, Object> {
 public:
  static constexpr FixedString FullName = "FolderItem";
  static void fillTable(ClassTable<FolderItem>& table);

  /// The whole path, for a person to read.
  [[nodiscard]] virtual String AbsolutePath() const;

  /// What went wrong in the last operation on the item, as the host's error number; 0 for nothing.
  std::int32_t LastErrorCode = 0;

  /// Opens the item for writing: an existing file is emptied in place, with its mode and its links
  /// kept. Nil with `LastErrorCode` set where that cannot be, and then nothing has changed.
  virtual std::unique_ptr<WritableFile> create();

  /// The item of a path, absolute or from the working folder.
  static Ref<FolderItem> atPath(String path);

 private:
  String path_;
};

/// A file of the system that is already open; closing it closes the descriptor.
std::unique_ptr<WritableFile> openDescriptor(int descriptor);

}  // namespace veldrin
