#include <QClipboard>
#include <QMenu>
#include <string>

#include "tests/qt/QtTest.h"
#include "ui/MenuBar1.h"

namespace veldrin::test {
namespace {

class EditMenuTest : public QtTest {
 protected:
  void SetUp() override {
    QtTest::SetUp();
    QApplication::clipboard()->clear();
  }

  /// The letters of the items that can be chosen when the menu opens: Undo, cuT, Copy, Paste,
  /// Delete, select All.
  static std::string enabled() {
    Q_EMIT widget<QMenu>("EditMenu").aboutToShow();
    std::string letters;
    for (const auto& [name, letter] : {std::pair{"EditUndo", 'U'},
                                       {"EditCut", 'T'},
                                       {"EditCopy", 'C'},
                                       {"EditPaste", 'P'},
                                       {"EditClear", 'D'},
                                       {"EditSelectAll", 'A'}}) {
      if (item(name).isEnabled()) letters += letter;
    }
    return letters;
  }
};

TEST_F(EditMenuTest, ItemsAreEnabledAsFarAsTheFieldCanCarryThemOut) {
  field("Latitude").setFocus();
  field("Latitude").deselect();
  EXPECT_EQ(enabled(), "A");
  field("Latitude").selectAll();
  EXPECT_EQ(enabled(), "TCDA");
  item("EditCut").trigger();
  EXPECT_EQ(enabled(), "UP");
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "");
  item("EditPaste").trigger();
  item("EditPaste").trigger();
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "47.547.5");
  EXPECT_EQ(enabled(), "UPA");
  item("EditUndo").trigger();
  EXPECT_EQ(implicit::Veldrin()->Latitude()->Text(), "47.5");
  item("EditSelectAll").trigger();
  EXPECT_EQ(enabled(), "UTCPDA");
  item("EditClear").trigger();
  EXPECT_EQ(field("Latitude").text(), "");
  field("TimeZone").setFocus();
  field("TimeZone").selectAll();
  item("EditCopy").trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "-8");
  // A text that the program sets is nothing to undo.
  QTest::keyClick(&widget("WhichYear"), Qt::Key_Down);
  field("DSTStart").setFocus();
  field("DSTStart").deselect();
  EXPECT_EQ(enabled(), "PA");
  for (const char* const name : {"BackOneDay", "DownUnderFlag", "WhichYear"}) {
    widget(name).setFocus();
    EXPECT_EQ(enabled(), "") << name;
  }
  EXPECT_TRUE(item("FileQuit").isEnabled());
}

TEST_F(EditMenuTest, ItemsShowTheTextsAndShortcutsOfTheMenuBar) {
  for (const char* const name :
       {"FileQuit", "EditUndo", "EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"}) {
    const Ref<MenuItem> shown = implicit::MenuBar1()->_Lookup(String(std::string_view(name)));
    EXPECT_EQ(item(name).text().toStdString(), text(shown->Text()));
    const QString keys = QString::fromStdString(text(shown->KeyboardShortcut()));
    EXPECT_EQ(item(name).shortcut(), QKeySequence(QString(keys).replace("Cmd", "Ctrl"))) << name;
  }
  EXPECT_TRUE(item("UntitledMenu0").isSeparator());
  EXPECT_TRUE(item("UntitledMenu1").isSeparator());
}

}  // namespace
}  // namespace veldrin::test
