#include "shell/Runtime.h"

#include <cassert>
#include <csignal>

#include "shell/BackgroundTask.h"
#include "shell/Window.h"
#include "shell/objects/Stack.h"

namespace veldrin {

Runtime::Runtime(Host& machine, Toolkit& drawing) : host(machine), toolkit(drawing) {
  assert(current_ == nullptr);
  current_ = this;
  detail::yieldingToolkit = &drawing;
  measureStack();
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

void Runtime::leaveWindows() {
  // A window whose menu handler is bound to the window itself would live on otherwise. Nothing here
  // takes memory, of which there may be none.
  auto& windows = _WindowSupport.Windows;
  while (!windows.empty()) Ref<Window>(windows.back())->leave();
}

Runtime::~Runtime() {
  _WindowSupport.mDirtyWindows = nullptr;
  leaveWindows();
  application = nullptr;
  endObjectsThatWait();
  detail::yieldingToolkit = nullptr;
  current_ = nullptr;
}

}  // namespace veldrin
