#include "apps/ProgramMain.h"
#include "apps/SpokenNames.h"
#include "apps/VeldrinParts.h"
#include "shell/host/SystemHost.h"
#include "toolkits/qt/QtToolkit.h"

int main() {
  return veldrin::runProgram("veldrin", [] {
    veldrin::SystemHost host;
    const auto names = veldrin::spokenNames();
    veldrin::QtToolkit toolkit(names);
    return veldrin::runProcess(host, toolkit, veldrin::VeldrinParts);
  });
}
