#include "apps/SpokenNames.h"
#include "apps/StandardDescriptors.h"
#include "apps/VeldrinParts.h"
#include "shell/SystemHost.h"
#include "toolkits/qt/QtToolkit.h"

int main() {
  veldrin::openStandardDescriptors();
  veldrin::SystemHost host;
  veldrin::QtToolkit toolkit(veldrin::SpokenNames);
  return veldrin::runProcess(host, toolkit, veldrin::VeldrinParts);
}
