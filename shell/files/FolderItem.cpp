#include "shell/files/FolderItem.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "shell/host/StopSignal.h"

namespace veldrin {
namespace {

class SystemFile final : public WritableFile {
 public:
  explicit SystemFile(int descriptor) : descriptor_(descriptor) {}
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;
  ~SystemFile() override { close(); }

  std::int32_t write(std::string_view text, std::string_view end) override {
    // Copying a short line costs less than passing two pieces to the OS.
    std::array<char, 256> line;
    if (text.size() + end.size() <= line.size()) {
      if (!text.empty()) std::memcpy(line.data(), text.data(), text.size());
      if (!end.empty()) std::memcpy(line.data() + text.size(), end.data(), end.size());
      return writeAll({line.data(), text.size() + end.size()}, {});
    }
    return writeAll(text, end);
  }

  std::int32_t close() final {
    const int closed = std::exchange(descriptor_, -1);
    // On EINTR the descriptor is closed too.
    return closed < 0 || ::close(closed) == 0 || errno == EINTR ? 0 : errno;
  }

 private:
  std::int32_t writeAll(std::string_view text, std::string_view end) const {
    while (!text.empty() || !end.empty()) {
      const std::array<iovec, 2> parts{partOf(text), partOf(end)};
      const ssize_t count = end.empty() ? ::write(descriptor_, text.data(), text.size())
                                        : ::writev(descriptor_, parts.data(), 2);
      if (count < 0 && !isStopPending() && (errno == EINTR || waitedForRoom())) continue;
      if (count <= 0) return count < 0 ? errno : EIO;
      const std::size_t ofText = std::min(static_cast<std::size_t>(count), text.size());
      text.remove_prefix(ofText);
      end.remove_prefix(static_cast<std::size_t>(count) - ofText);
    }
    return 0;
  }

  /// If a write failed because a nonblocking descriptor is full, waits until it is writable and
  /// returns true. Ignores errors of poll(), because the next write reports them.
  [[nodiscard]] bool waitedForRoom() const {
    if (errno != EAGAIN && errno != EWOULDBLOCK) return false;
    pollfd writable{descriptor_, POLLOUT, 0};
    static_cast<void>(::poll(&writable, 1, -1));
    return true;
  }

  static iovec partOf(std::string_view text) {
    // `iovec` is not const because readv() uses it too; writev() changes no bytes.
    return {const_cast<char*>(text.data()), text.size()};
  }

  int descriptor_;
};

}  // namespace

void FolderItem::fillTable(ClassTable<FolderItem>& table) {
  table.readOnlyProperty<&FolderItem::AbsolutePath>("AbsolutePath"_s);
  table.readOnlyField<&FolderItem::LastErrorCode>("LastErrorCode"_s);
}

std::unique_ptr<WritableFile> openDescriptor(int descriptor) {
  return std::make_unique<SystemFile>(descriptor);
}

String FolderItem::AbsolutePath() const {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(path_.view(), error);
  return error ? path_ : String(path.native());
}

std::unique_ptr<WritableFile> FolderItem::create() {
  const std::string path(path_.view());
  LastErrorCode = 0;
  // The OS would cut the path at the zero byte and open another file.
  if (path.find('\0') != std::string::npos) {
    LastErrorCode = EINVAL;
    return nullptr;
  }
  // Without O_NONBLOCK, opening a pipe without a reader would block the window.
  constexpr int Flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), Flags, NewFileMode);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) {
    LastErrorCode = errno;
    return nullptr;
  }
  ::fcntl(descriptor, F_SETFL, 0);  // without O_NONBLOCK, writes wait for a slow reader
  return openDescriptor(descriptor);
}

Ref<FolderItem> FolderItem::atPath(String path) {
  Ref<FolderItem> item = New<FolderItem>();
  item->path_ = std::move(path);
  return item;
}

}  // namespace veldrin
