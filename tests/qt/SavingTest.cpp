#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
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

TEST_F(SavingTest, TheNameThatIsTypedIsTheFileThatIsWritten) {
  for (const char* const name :
       {"Tom \"Sunny\" Hill.ics", "\"", " a b ", "c;d 'e' \\.ics", "\xC3\xA4"}) {
    whenAsked(saveAs(folder.filePath(name).toStdString()));
    person->press("GenerateButton");
    EXPECT_TRUE(QFile::exists(folder.filePath(name))) << name;
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 5);
  // What is no name is told, and the dialog goes on.
  std::string tooLong;
  for (int letter = 0; letter < 126; ++letter) tooLong += "\xC3\xA4";
  const struct {
    std::string name, told;
  } rows[] = {{"   ", "A file needs a name."},
              {"", "A file needs a name."},
              {folder.filePath(QString::fromStdString(tooLong + ".ics")).toStdString(),
               "The name is too long. It can have 255 bytes here."}};
  for (const auto& row : rows) {
    whenAsked([&](QDialog& dialog) {
      whenAsked([&](QDialog& box) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text().toStdString(), row.told);
        press(QMessageBox::Ok)(box);
      });
      saveAs(row.name)(dialog);
      EXPECT_TRUE(dialog.isVisible());
      dialog.reject();
    });
    person->press("GenerateButton");
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 5);
}

TEST_F(SavingTest, AMessageBoxIsNoLargerThanTheScreen) {
  const std::string told =
      "Cannot write to /" + std::string(5000, 'x') + "/y\n" + std::string(500, '\n');
  whenAsked([&](QDialog& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    const QSize screen = box.screen()->availableSize();
    EXPECT_TRUE(box.width() <= screen.width() && box.height() <= screen.height());
    EXPECT_TRUE(box.text().startsWith("Cannot write to /xxx"));
    EXPECT_EQ(box.detailedText().toStdString(), told);
    EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->accessibleName().toStdString(), told);
    press(QMessageBox::Ok)(box);
  });
  person->toolkit().messageBox(String(told));
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
