// Starts Veldrin and exits after the first frame with the status text.

#include <QLabel>

#include "apps/SpokenNames.h"
#include "apps/VeldrinParts.h"
#include "bench/window/FirstFrame.h"
#include "shell/host/SystemHost.h"
#include "toolkits/qt/QtToolkit.h"

namespace {

bool isStatus(const QWidget& painted) {
  const auto* const label = qobject_cast<const QLabel*>(&painted);
  return label != nullptr && label->objectName() == "Status" && !label->text().isEmpty();
}

}  // namespace

int main() {
  veldrin::SystemHost host;
  const auto names = veldrin::spokenNames();
  veldrin::QtToolkit toolkit(names);
  const FirstFrame frame(isStatus);
  return veldrin::runProcess(host, toolkit, veldrin::VeldrinParts);
}
