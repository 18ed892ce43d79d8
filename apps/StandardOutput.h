#pragma once

#include <memory>

#include "shell/files/FolderItem.h"

namespace veldrin {

/// Standard output as a file to save to.
class StandardOutput final : public Described<StandardOutput, FolderItem> {
 public:
  static constexpr FixedString FullName = "StandardOutput";

  [[nodiscard]] String AbsolutePath() const override { return "standard output"_s; }

  std::unique_ptr<WritableFile> create() override;
};

}  // namespace veldrin
