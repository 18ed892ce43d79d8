#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <string>

#include "tests/qt/QtPerson.h"
#include "tests/support/Documents.h"

namespace veldrin::test {
namespace {

class SavingTest : public QtTest {
 protected:
  static Answer saveAs(const std::string& path) {
    return [path](QDialog& dialog) {
      auto& name = *dialog.findChild<QLineEdit*>("fileNameEdit");
      name.setText(QString::fromStdString(path));
      QTest::keyClick(&name, Qt::Key_Return);
    };
  }

  static void sayOk(QDialog& box) {
    dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
  }

  std::string path() const { return folder.filePath("saved.ics").toStdString(); }
};

TEST_F(SavingTest, TheFileIsTheGoldenCalendar) {
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
  // Nothing is stored for the next run, not even the folder of the file.
  EXPECT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).isEmpty());
}

TEST_F(SavingTest, TheFileHasExactlyTheTypedName) {
  for (const char* const name :
       {"Tom \"Sunny\" Hill.ics", "\"", " a b ", "c;d 'e' \\.ics", "\xC3\xA4"}) {
    whenAsked(saveAs(folder.filePath(name).toStdString()));
    person->press("GenerateButton");
    EXPECT_TRUE(QFile::exists(folder.filePath(name))) << name;
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 5);
  // An invalid name shows a message, and the dialog stays open.
  std::string tooLong;
  for (int letter = 0; letter < 126; ++letter) tooLong += "\xC3\xA4";
  const struct {
    std::string name, message;
  } rows[] = {{"   ", "A file needs a name."},
              {"", "A file needs a name."},
              {folder.filePath(QString::fromStdString(tooLong + ".ics")).toStdString(),
               "The name is too long. It can have 255 bytes here."}};
  for (const auto& row : rows) {
    whenAsked([&](QDialog& dialog) {
      whenAsked([&](QDialog& box) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text().toStdString(), row.message);
        sayOk(box);
      });
      saveAs(row.name)(dialog);
      EXPECT_TRUE(dialog.isVisible());
      dialog.reject();
    });
    person->press("GenerateButton");
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 5);
}

TEST_F(SavingTest, AMessageBoxFitsTheScreen) {
  const std::string told =
      "Cannot write to /" + std::string(5000, 'x') + "/y\n" + std::string(500, '\n');
  whenAsked([&](QDialog& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    const QSize screen = box.screen()->availableSize();
    EXPECT_TRUE(box.width() <= screen.width() && box.height() <= screen.height());
    EXPECT_TRUE(box.text().startsWith("Cannot write to /xxx"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.detailedText().toStdString(), told);
    EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->accessibleName().toStdString(), told);
    sayOk(box);
  });
  person->toolkit().quit();  // outside the event loop it must not close the next box
  person->toolkit().messageBox(nullptr, String(told));
}

}  // namespace
}  // namespace veldrin::test
