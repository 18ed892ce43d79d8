#include "shell/window/WindowRoom.h"

#include "shell/window/Application.h"
#include "shell/window/PluginEntries.h"

namespace veldrin {

WindowRoom::~WindowRoom() {
  _mImplicitWindowList = nullptr;
  _WindowSupport.mDirtyWindows = nullptr;
  removeAllWindows();
  releaseApplication();
  releasePluginEntries();
  destroyPostponedObjects();
}

}  // namespace veldrin
