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

Runtime::~Runtime() {
  _WindowSupport.mDirtyWindows = nullptr;
  _WindowSupport.Windows.clear();
  application = nullptr;
  detail::yieldingToolkit = nullptr;
  current_ = nullptr;
}

}  // namespace veldrin
