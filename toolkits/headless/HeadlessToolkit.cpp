#include "toolkits/headless/HeadlessToolkit.h"

#include <utility>

#include "shell/objects/Failure.h"

namespace veldrin {

Ref<FolderItem> HeadlessToolkit::getSaveFolderItem(const String& /*filter*/,
                                                   const String& /*defaultName*/) {
  if (saveAnswers.empty()) return nullptr;
  Ref<FolderItem> answer = std::move(saveAnswers.front());
  saveAnswers.pop_front();
  return answer;
}

void HeadlessToolkit::run() {
  if (job) job();
}

void HeadlessToolkit::reportUnhandledException(const RuntimeException& exception) {
  reports_.push_back({exception.classRecord()->name, exception.ErrorNumber});
}

}  // namespace veldrin
