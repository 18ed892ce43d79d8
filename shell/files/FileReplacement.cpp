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

constexpr mode_t Permissions = 0777;

/// The path after following the symbolic links at its end. The target need not exist.
path linkTarget(path place) {
  constexpr int MostLinks = 40;  // the limit of the OS
  std::error_code error;
  for (int link = 0; link < MostLinks && std::filesystem::is_symlink(place, error); ++link) {
    place = place.parent_path() / std::filesystem::read_symlink(place, error);
  }
  return place;
}

/// A new file in the folder of the target. The destructor removes it unless it replaced the target.
class TemporaryFile {
 public:
  /// `old` describes the existing target, if any. A failure is reported by `replaceWith`.
  TemporaryFile(const path& target, const std::optional<struct stat>& old) : target_(target) {
    mode_t mode = old ? old->st_mode & Permissions : NewFileMode;
    int descriptor = -1;
    for (int count = 0; descriptor < 0; ++count) {
      // The name does not contain the target's name, which may be of the greatest length.
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
    // Only the superuser may change the owner, and other users may set only their own groups. A
    // different group does not get the old group's permissions. The mode is set last, because
    // fchown clears some of its bits.
    constexpr auto Unchanged = static_cast<uid_t>(-1);
    const bool keepsGroup = ::fchown(descriptor, old->st_uid, old->st_gid) == 0 ||
                            ::fchown(descriptor, Unchanged, old->st_gid) == 0;
    if (!keepsGroup) mode &= ~static_cast<mode_t>(S_IRWXG);
    if (::fchmod(descriptor, mode) != 0) error_ = errno;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_ && !isRenamed_) ::unlink(name_.c_str());
  }

  /// Writes the text and renames the file to the target. Returns 0 or the first error number.
  std::int32_t replaceWith(std::string_view text) {
    if (error_ == 0) error_ = file_->write(text, {});
    // A power cut must not lose the old file, so the text reaches the disk before the rename.
    if (error_ == 0 && replacesFile() && ::fsync(descriptor_) != 0) error_ = errno;
    if (error_ == 0) error_ = file_->close();
    if (error_ != 0) return error_;
    isRenamed_ = std::rename(name_.c_str(), target_.c_str()) == 0;
    if (!isRenamed_) return errno;
    if (replacesFile()) syncFolder();
    return 0;
  }

 private:
  [[nodiscard]] bool replacesFile() const { return descriptor_ >= 0; }

  /// Writes the rename to the disk. Ignores failures: at worst, a power cut brings back the old
  /// file.
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
  int descriptor_ = -1;  ///< of `file_` if there is an old file, else -1
  std::int32_t error_ = 0;
  bool isRenamed_ = false;
};

/// The descriptor of standard output or standard error if it is open on this file, else -1.
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
    // A deleted file can still be reached through /proc, but has no name to replace.
    const bool isReplaceable = S_ISREG(found.st_mode) && found.st_nlink > 0;
    if (!isReplaceable) return writeThrough(*FolderItem::atPath(String(path)), text);
    // Replacing the file would lose other output that is redirected to it.
    if (const int descriptor = standardDescriptorOf(found); descriptor >= 0) {
      return writeTo(*openDescriptor(::dup(descriptor)), text);
    }
    // A rename would replace even a read-only file. Refuse that, as an ordinary write does.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    old = found;
  } else if (errno != ENOENT) {
    return errno;
  }
  return TemporaryFile(linkTarget(path), old).replaceWith(text);
}

}  // namespace veldrin
