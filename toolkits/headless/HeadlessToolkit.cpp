#include "toolkits/headless/HeadlessToolkit.h"

#include <utility>

namespace veldrin {

Ref<FolderItem> HeadlessToolkit::getSaveFolderItem(const Window* /*parent*/,
                                                   const String& /*filter*/,
                                                   const String& /*defaultName*/) {
  if (saveAnswers.empty()) return nullptr;
  Ref<FolderItem> answer = std::move(saveAnswers.front());
  saveAnswers.pop_front();
  return answer;
}

void HeadlessToolkit::run() {
  if (const auto once = std::exchange(job, nullptr)) once();
}

}  // namespace veldrin
