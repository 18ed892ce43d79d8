#pragma once

#include <cstdint>
#include <memory>

#include "shell/files/FolderItem.h"
#include "shell/files/Writeable.h"
#include "shell/objects/Described.h"
#include "shell/objects/Failure.h"

namespace veldrin {

/// A text file open for writing. Each call writes to the OS at once, without a buffer: if a call
/// fails, all earlier lines are in the file.
class TextOutputStream final : public Described<TextOutputStream, Object> {
 public:
  static constexpr FixedString FullName = "TextOutputStream";
  static void fillTable(ClassTable<TextOutputStream>& table);

  /// Creates a text file at the item and returns a stream with `UseIOExceptions` set. Raises
  /// `NilObjectException` for nil, and `IOException` with the item's `LastErrorCode` if the file
  /// cannot be created.
  static Ref<TextOutputStream> Create(const Ref<FolderItem>& item);

  /// Does nothing: a new stream has no file, and writing to it fails.
  void Constructor() {}

  /// Writes the text and `Delimiter`. Fails as `Write` does.
  void WriteLine(const String& text);
  /// Writes the text. On failure sets `LastErrorCode`, and raises `IOException` if
  /// `UseIOExceptions`. Raises `EndException` if a stop signal interrupted the write.
  void Write(const String& text);
  /// Closes the file. Later writes fail.
  void Close() { file_.reset(); }
  /// Raises `IOException` if the last write failed and `UseIOExceptions` is set.
  void Flush() const { CheckForError(); }
  /// Always nullptr. Raises as `Flush` does. The framework's conventions require it.
  [[nodiscard]] void* Handle(std::int32_t type) const;
  /// Whether the last write failed.
  [[nodiscard]] bool WriteError() const { return lastErrorCode_ != 0; }

  /// The OS's error number of the last write, or 0.
  [[nodiscard]] std::int32_t LastErrorCode() const { return lastErrorCode_; }

  /// If the stream is open, stores its path in the exception as the path of an incomplete file.
  void noteIncomplete(RuntimeException& exception) const;

  /// The end of a line for `WriteLine`; by default CR LF, as in RFC 5545, 3.1.
  String Delimiter = "\r\n"_s;
  bool UseIOExceptions = false;

 private:
  friend Ref<TextOutputStream> FolderItemCreateTextFile(const Ref<FolderItem>& item);

  void write(std::string_view text, std::string_view end);
  void CheckForError() const;

  Ref<FolderItem> item_;
  std::unique_ptr<WritableFile> file_;
  std::int32_t lastErrorCode_ = 0;
};

/// Creates or empties the text file at the item. On failure returns nil and sets the item's
/// `LastErrorCode`.
Ref<TextOutputStream> FolderItemCreateTextFile(const Ref<FolderItem>& item);

}  // namespace veldrin
