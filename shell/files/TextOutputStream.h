#pragma once

#include <cstdint>
#include <memory>

#include "shell/files/FolderItem.h"
#include "shell/files/Writeable.h"
#include "shell/objects/Described.h"
#include "shell/objects/Failure.h"

namespace veldrin {

/// An open text file for writing. Each call that writes is one write to the system, so the call
/// that fails is the line that failed, and the lines before it are in the file.
class TextOutputStream final : public Described<TextOutputStream, Object> {
 public:
  static constexpr FixedString FullName = "TextOutputStream";
  static void fillTable(ClassTable<TextOutputStream>& table);

  /// A new stream to a new text file at the item, in the raising mode. Raises
  /// `NilObjectException` for nil, and `IOException` with the item's `LastErrorCode` where the file
  /// cannot be made; it never returns nil.
  static Ref<TextOutputStream> Create(const Ref<FolderItem>& item);

  /// Readies a stream that writes to nothing yet.
  void Constructor() {}

  /// Writes the text and behind it the delimiter. Raises `IOException` where the system refuses,
  /// as `Write` does.
  void WriteLine(const String& text);
  /// Writes the text as it is.
  void Write(const String& text);
  /// Closes the file; writing to it afterwards is an error of the stream.
  void Close() { file_.reset(); }
  /// There is nothing to flush, since nothing is held back; raises what is still to be raised.
  void Flush() const { CheckForError(); }
  /// The host's own handle of the open file, in the form that `type` asks for. This host has none
  /// to give away, so it is nil; raises what is still to be raised.
  [[nodiscard]] void* Handle(std::int32_t type) const;
  /// Whether the last write failed.
  [[nodiscard]] bool WriteError() const { return lastErrorCode_ != 0; }

  /// The host's number of the error of the last write, 0 for none.
  [[nodiscard]] std::int32_t LastErrorCode() const { return lastErrorCode_; }

  /// Notes on an exception that it ends the writing of this file before its end, unless the stream
  /// is closed.
  void noteIncomplete(RuntimeException& exception) const;

  /// What `WriteLine` puts behind a line: carriage return and line feed, RFC 5545, 3.1.
  String Delimiter = "\r\n"_s;
  bool UseIOExceptions = false;

 private:
  friend Ref<TextOutputStream> FolderItemCreateTextFile(const Ref<FolderItem>& item);

  void write(std::string_view text, std::string_view end);
  void CheckForError() const;

  Ref<FolderItem> item_;  ///< what the stream was made for
  std::unique_ptr<WritableFile> file_;
  std::int32_t lastErrorCode_ = 0;
};

/// A stream to a text file made anew at the item, or nil with the item's `LastErrorCode` set.
Ref<TextOutputStream> FolderItemCreateTextFile(const Ref<FolderItem>& item);

}  // namespace veldrin
