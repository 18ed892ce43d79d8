#include "apps/VeldrinParts.h"

#include "calendar/OutputFile.h"
#include "daystatus/Veldrin.h"
#include "reflection/Introspection.h"
#include "reflection/ReflectionClasses.h"
#include "shell/Classes.h"
#include "shell/window/Window.h"
#include "ui/MenuBar1.h"

namespace veldrin {

void initializeClasses() {
  initializeShellClasses();
  initializeReflectionClasses();
  Veldrin::__ctblinit();
  App::__ctblinit();
  MenuBar1::__ctblinit();
}

void finalizeGlobals() {
  _mImplicitWindowList = nullptr;
  _WindowSupport.mDirtyWindows = nullptr;
  removeAllWindows();
  Introspection::finalizeReflection();
  MenuBar1::_implicitInstance = nullptr;
  OutputFile::__Exit();
}

const ApplicationParts VeldrinParts{
    .initialize = initializeClasses,
    .initFileTypes = OutputFile::_Initialize,
    .menuBar = []() -> Ref<MenuBar> { return implicit::MenuBar1(); },
    .makeView = [] { static_cast<void>(implicit::Veldrin()); },
    .finalize = finalizeGlobals,
};

}  // namespace veldrin
