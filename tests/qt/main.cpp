#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "apps/SpokenNames.h"
#include "tests/qt/QtPerson.h"

int main(int count, char** arguments) {
  const QTemporaryDir settings;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
  qputenv("LC_ALL", "de_DE.UTF-8");
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  // Local, so that Qt's static objects are destroyed later.
  const auto names = veldrin::spokenNames();
  veldrin::QtToolkit toolkit(names);
  veldrin::test::QtPerson::theToolkit = &toolkit;
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
