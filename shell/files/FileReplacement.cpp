#include "shell/files/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

namespace veldrin {
namespace {

using std::filesystem::path;

constexpr mode_t ReadAndWrite = 0666;  // less what the user's mask takes away
constexpr mode_t Permissions = 0777;

/// Where the links at the end of a path lead, whether something lies there or not.
path behindLinks(path place) {
  constexpr int MostLinks = 40;  // the system's own bound
  std::error_code error;
  for (int link = 0; link < MostLinks && std::filesystem::is_symlink(place, error); ++link) {
    place = place.parent_path() / std::filesystem::read_symlink(place, error);
  }
  return place;
}

/// A new file in the folder of the target, removed at the end unless it has replaced the target.
class TemporaryFile {
 public:
  /// Tells by `error()` where it could not be made. `old` is the file whose place it is to take.
  TemporaryFile(const path& target, const std::optional<struct stat>& old) : target_(target) {
    mode_t mode = old ? old->st_mode & Permissions : ReadAndWrite;
    int descriptor = -1;
    for (int count = 0; descriptor < 0; ++count) {
      // Short, since the longest name that the folder takes may be that of the target.
      name_ = target.parent_path() /
              (".veldrin-" + std::to_string(::getpid()) + "-" + std::to_string(count));
      descriptor = ::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
      if (descriptor < 0 && errno != EEXIST && errno != EINTR) {
        error_ = errno;
        return;
      }
    }
    file_ = openDescriptor(descriptor);
    if (!old) return;
    descriptor_ = descriptor;
    // Only the superuser may change an owner, and a user only to a group of their own; what the old
    // group was allowed is not for another. The mode is set last, since a new owner takes some
    // away.
    constexpr auto AsItIs = static_cast<uid_t>(-1);
    const bool keepsGroup = ::fchown(descriptor, old->st_uid, old->st_gid) == 0 ||
                            ::fchown(descriptor, AsItIs, old->st_gid) == 0;
    if (!keepsGroup) mode &= ~static_cast<mode_t>(S_IRWXG);
    if (::fchmod(descriptor, mode) != 0) error_ = errno;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_ && !tookPlace_) ::unlink(name_.c_str());
  }

  /// Writes the text and takes the place of the target.
  std::int32_t replaceWith(std::string_view text) {
    if (error_ == 0) error_ = file_->write(text, {});
    // An older file must not be lost by a power cut: the new one is on the disk before it takes its
    // place.
    if (error_ == 0 && replacesFile() && ::fsync(descriptor_) != 0) error_ = errno;
    if (error_ == 0) error_ = file_->close();
    if (error_ != 0) return error_;
    tookPlace_ = std::rename(name_.c_str(), target_.c_str()) == 0;
    if (!tookPlace_) return errno;
    if (replacesFile()) syncFolder();
    return 0;
  }

 private:
  [[nodiscard]] bool replacesFile() const { return descriptor_ >= 0; }

  /// Puts the new name on the disk. A failure loses nothing: the old name leads to the old file.
  void syncFolder() const {
    const path folder = target_.has_parent_path() ? target_.parent_path() : path(".");
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    static_cast<void>(::fsync(descriptor));
    ::close(descriptor);
  }

  path target_;
  path name_;
  std::unique_ptr<WritableFile> file_;
  int descriptor_ = -1;  ///< of `file_`, if it is to replace a file
  std::int32_t error_ = 0;
  bool tookPlace_ = false;
};

/// The descriptor of the standard output or of the errors that this very file stands behind, or -1.
int standardDescriptorOf(const struct stat& file) {
  for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
    struct stat open {};
    const bool isOpen = ::fstat(descriptor, &open) == 0;
    if (isOpen && open.st_dev == file.st_dev && open.st_ino == file.st_ino) return descriptor;
  }
  return -1;
}

std::int32_t writeTo(WritableFile& file, std::string_view text) {
  const std::int32_t error = file.write(text, {});
  return error == 0 ? file.close() : error;
}

}  // namespace

std::int32_t writeThrough(FolderItem& item, std::string_view text) {
  const std::unique_ptr<WritableFile> file = item.create();
  return file == nullptr ? item.LastErrorCode : writeTo(*file, text);
}

std::int32_t replaceFile(const std::string& path, std::string_view text) {
  struct stat found {};
  std::optional<struct stat> old;
  if (::stat(path.c_str(), &found) == 0) {
    // A deleted file that a name in /proc still leads to has no name that could be replaced.
    const bool hasName = S_ISREG(found.st_mode) && found.st_nlink > 0;
    if (!hasName) return writeThrough(*FolderItem::atPath(String(path)), text);
    // What a shell has sent there as well would be lost with a file that is replaced.
    if (const int descriptor = standardDescriptorOf(found); descriptor >= 0) {
      return writeTo(*openDescriptor(::dup(descriptor)), text);
    }
    // A rename would replace a read-only file too; it is refused as an ordinary write is.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    old = found;
  } else if (errno != ENOENT) {
    return errno;
  }
  return TemporaryFile(behindLinks(path), old).replaceWith(text);
}

}  // namespace veldrin
