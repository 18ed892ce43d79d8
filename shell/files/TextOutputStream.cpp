#include "shell/files/TextOutputStream.h"

#include <cerrno>
#include <utility>

#include "shell/host/StopSignal.h"
#include "shell/objects/Failure.h"

namespace veldrin {

void TextOutputStream::fillTable(ClassTable<TextOutputStream>& table) {
  table.method<&TextOutputStream::WriteLine>("WriteLine"_s);
  table.method<&TextOutputStream::Write>("Write"_s);
  table.method<&TextOutputStream::Close>("Close"_s);
  table.method<&TextOutputStream::Flush>("Flush"_s);
  table.method<&TextOutputStream::WriteError>("WriteError"_s);
  table.method<&TextOutputStream::Constructor>("Constructor"_s);
  table.method<&TextOutputStream::Handle>("Handle"_s);
  table.sharedMethod<&TextOutputStream::Create>("Create"_s);
  table.plainMethod<&TextOutputStream::CheckForError>("CheckForError"_s, Private);
  table.property<&TextOutputStream::Delimiter>("Delimiter"_s);
  table.readOnlyProperty<&TextOutputStream::LastErrorCode>("LastErrorCode"_s);
  table.property<&TextOutputStream::UseIOExceptions>("UseIOExceptions"_s);
  table.implements<Writeable, &TextOutputStream::Write, &TextOutputStream::Flush,
                   &TextOutputStream::WriteError>();
}

Ref<TextOutputStream> FolderItemCreateTextFile(const Ref<FolderItem>& item) {
  std::unique_ptr<WritableFile> file = item->create();
  if (file == nullptr) return nullptr;
  Ref<TextOutputStream> stream = New<TextOutputStream>();
  stream->item_ = item;
  stream->file_ = std::move(file);
  return stream;
}

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& item) {
  if (!item) RaiseNilObjectException();
  Ref<TextOutputStream> stream = FolderItemCreateTextFile(item);
  if (!stream) Raise<IOException>(item->LastErrorCode);
  stream->UseIOExceptions = true;
  return stream;
}

void* TextOutputStream::Handle(std::int32_t /*type*/) const {
  CheckForError();
  return nullptr;
}

void TextOutputStream::WriteLine(const String& text) {
  write(text.view(), Delimiter.view());
}

void TextOutputStream::Write(const String& text) {
  write(text.view(), {});
}

void TextOutputStream::noteIncomplete(RuntimeException& exception) const {
  if (file_ != nullptr) exception.incompleteFile = item_->AbsolutePath();
}

void TextOutputStream::write(std::string_view text, std::string_view end) {
  lastErrorCode_ = file_ == nullptr ? EBADF : file_->write(text, end);
  // A stop signal interrupts a write that waits for its reader.
  if (lastErrorCode_ != 0 && isStopPending()) raiseStop();
  CheckForError();
}

void TextOutputStream::CheckForError() const {
  if (UseIOExceptions && lastErrorCode_ != 0) Raise<IOException>(lastErrorCode_);
}

}  // namespace veldrin
