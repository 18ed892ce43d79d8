#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <fstream>
#include <string>

#include "tests/qt/QtTest.h"
#include "tests/support/Documents.h"

namespace veldrin::test {
namespace {

class SavingTest : public QtTest {
 protected:
  /// Types the path into the save dialog and presses Return.
  static Answer saveAs(const std::string& path) {
    return [path](QDialog& dialog) {
      auto& name = *dialog.findChild<QLineEdit*>("fileNameEdit");
      name.setText(QString::fromStdString(path));
      QTest::keyClick(&name, Qt::Key_Return);
    };
  }

  static Answer press(QMessageBox::StandardButton button) {
    return [button](QDialog& dialog) {
      auto* const box = qobject_cast<QMessageBox*>(&dialog);
      ASSERT_NE(box, nullptr);
      box->button(button)->click();
    };
  }

  std::string path() const { return folder.filePath("saved.ics").toStdString(); }
};

TEST_F(SavingTest, TheFileIsThatOfTheFormToTheByte) {
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Up);
  whenAsked([this](QDialog& dialog) {
    auto& files = dynamic_cast<QFileDialog&>(dialog);
    EXPECT_EQ(files.findChild<QLineEdit*>("fileNameEdit")->text(), "Veldrin.ics");
    EXPECT_EQ(files.nameFilters(), (QStringList{"Calendar files (*.ics)", "All files (*)"}));
    saveAs(path())(dialog);
  });
  person->press("GenerateButton");
  EXPECT_EQ(firstDifference(readFile(path()), golden("default-2008.ics")), "");
  // Nothing is kept from one run to the next, not even where the last file went.
  EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty());
}

TEST_F(SavingTest, AnExistingFileIsReplacedOnlyWhenThePersonSaysSo) {
  std::ofstream(path()) << "old";
  whenAsked(saveAs(path()));
  whenAsked(press(QMessageBox::No));
  whenAsked([](QDialog& dialog) { dialog.reject(); });
  person->press("GenerateButton");
  EXPECT_EQ(readFile(path()), "old");
  whenAsked(saveAs(path()));
  whenAsked(press(QMessageBox::Yes));
  person->press("GenerateButton");
  EXPECT_TRUE(readFile(path()).starts_with("BEGIN:VCALENDAR\r\n"));
}

TEST_F(SavingTest, AFileThatCannotBeMadeIsToldAndTheWindowGoesOn) {
  const std::string nowhere = folder.filePath("<b>no</b>/Veldrin.ics").toStdString();
  whenAsked(saveAs(nowhere));
  whenAsked([&](QDialog& dialog) {
    EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).text().toStdString(),
              "Cannot write to " + nowhere);
    EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).textFormat(), Qt::PlainText);
    press(QMessageBox::Ok)(dialog);
  });
  person->press("GenerateButton");
  person->press("ForwardOneDay");
  EXPECT_EQ(status().substr(0, 9), "6/22/2024");
}

}  // namespace
}  // namespace veldrin::test
