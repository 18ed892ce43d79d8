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
  if (const auto once = std::exchange(job, nullptr)) once();
}

void HeadlessToolkit::reportUnhandledException(const RuntimeException& exception,
                                               const String& sentence) {
  reports_.push_back({exception.classRecord()->name, exception.ErrorNumber, sentence});
}

}  // namespace veldrin
