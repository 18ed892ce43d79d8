#pragma once

#include <cerrno>
#include <limits>
#include <memory>
#include <string>

#include "shell/files/FolderItem.h"

namespace veldrin::test {

/// A file in memory that can fail to open or become full.
class MemoryItem final : public Described<MemoryItem, FolderItem> {
 public:
  static constexpr FixedString FullName = "MemoryItem";

  std::shared_ptr<std::string> content = std::make_shared<std::string>();
  std::int32_t errorOfCreate = 0;  ///< 0 for success
  int linesUntilFull = std::numeric_limits<int>::max();

  [[nodiscard]] String AbsolutePath() const override { return "/memory/item.ics"_s; }

  std::unique_ptr<WritableFile> create() override {
    LastErrorCode = errorOfCreate;
    if (errorOfCreate != 0) return nullptr;
    content->clear();
    return std::make_unique<File>(content, linesUntilFull);
  }

 private:
  class File final : public WritableFile {
   public:
    File(std::shared_ptr<std::string> content, int linesUntilFull)
        : content_(std::move(content)), linesUntilFull_(linesUntilFull) {}
    std::int32_t write(std::string_view text, std::string_view end) override {
      if (linesUntilFull_-- <= 0) return ENOSPC;
      content_->append(text).append(end);
      return 0;
    }

   private:
    std::shared_ptr<std::string> content_;
    int linesUntilFull_;
  };
};

}  // namespace veldrin::test
